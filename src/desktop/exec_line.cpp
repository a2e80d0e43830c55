#include "desktop/exec_line.h"

#include <utility>

namespace zolt::desktop {

namespace {

/// The escapes of every value: the letter behind a backslash, and what it stands for.
constexpr std::pair<char, char> kValueEscapes[] = {
    {'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
/// What a backslash stands before within quotes.
constexpr std::string_view kQuotedEscapes = "\"`$\\";

std::string escapedValue(std::string_view text) {
    std::string value;
    for (const char c : text) {
        char letter = 0;
        for (const auto &[escape, meaning] : kValueEscapes)
            if (c == meaning && c != ' ')
                letter = escape;
        if (letter)
            value += '\\';
        value += letter ? letter : c;
    }
    return value;
}

std::string unescapedValue(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        char c = value[i];
        if (c == '\\' && i + 1 < value.size())
            for (const auto &[escape, meaning] : kValueEscapes)
                if (value[i + 1] == escape) {
                    c = meaning;
                    ++i;
                    break;
                }
        text += c;
    }
    return text;
}

/// The first argument of a command line, its quotes and backslashes taken off.
std::string firstArgument(std::string_view line) {
    std::string argument;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size() && (quoted || line[i] != ' ' || argument.empty()); ++i) {
        if (line[i] == '"')
            quoted = !quoted;
        else if (line[i] == '\\' && i + 1 < line.size() &&
                 (!quoted || kQuotedEscapes.find(line[i + 1]) != std::string_view::npos))
            argument += line[++i];
        else if (quoted || line[i] != ' ')
            argument += line[i];
    }
    return argument;
}

} // namespace

std::string execLine(std::string_view program) {
    std::string quoted = "\"";
    for (const char c : program) {
        if (kQuotedEscapes.find(c) != std::string_view::npos)
            quoted += '\\';
        quoted += c;
        if (c == '%')
            quoted += c;
    }
    return escapedValue(quoted + "\" %f");
}

std::string programOf(std::string_view execValue) {
    std::string program = firstArgument(unescapedValue(execValue));
    for (std::size_t at = program.find("%%"); at != std::string::npos; at = program.find("%%", at + 1))
        program.erase(at, 1);
    return program;
}

} // namespace zolt::desktop
