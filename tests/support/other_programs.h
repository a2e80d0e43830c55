#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace zolt::test {

/// Whether a program can be called.
inline bool hasProgram(const std::string &name) {
    return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

/// What a command line of the shell writes to its standard output.
inline std::string outputOf(const std::string &command) {
    std::string text;
    std::FILE *pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return text;
    char piece[4096];
    while (const std::size_t got = std::fread(piece, 1, sizeof piece, pipe))
        text.append(piece, got);
    ::pclose(pipe);
    return text;
}

} // namespace zolt::test
