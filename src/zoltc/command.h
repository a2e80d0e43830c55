#pragma once

#include "core/atomic_file.h"

#include <cstddef>
#include <cstdio>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zolt::cli {

/// What a command ends with.
enum Exit { Done = 0, Refused = 1, Unusable = 2 };

/// An option that a command takes, without its leading hyphens.
struct Option {
    std::string_view name;
    /// What its value is called in the help; empty for an option without value.
    std::string_view value;
    std::string_view help;
    bool repeated = false;
};

/// A command line taken apart: the names in their order, and each option's values.
struct Arguments {
    std::vector<std::string> files;
    std::map<std::string, std::vector<std::string>, std::less<>> options;

    bool has(std::string_view option) const { return options.find(option) != options.end(); }
    /// The last value given for an option, or `otherwise`.
    std::string value(std::string_view option, std::string_view otherwise = {}) const;
};

/// One row of the table of commands.
struct Command {
    std::string_view name;
    /// The names behind the command, such as "INPUT OUTPUT".
    std::string_view usage;
    std::string_view help;
    std::vector<Option> options;
    std::size_t fewestFiles;
    std::size_t mostFiles;
    int (*run)(const Arguments &);
};

/// The table of commands, in the order of the help. Each stands in a file of its own.
const std::vector<Command> &commands();

/// Runs a whole command line, without the program's name. Returns the exit code.
int run(const std::vector<std::string> &words);

/// The number that a whole text is in decimal, or none.
std::optional<int> wholeNumber(std::string_view text);

/// Reads a file, or standard input for "-". On failure says so on standard error.
bool readInput(const std::string &file, std::string &bytes);

/// What a command writes, piece by piece: a file whole or not at all, or standard output
/// for "-". Pipes and devices, which can't be replaced, are written as they stand.
class Output {
public:
    explicit Output(const std::string &file);
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void append(std::string_view piece);
    /// Ends it. On the first failure says so on standard error and is false.
    bool finish();

private:
    struct CloseFile {
        void operator()(std::FILE *stream) const;
    };

    std::string m_name;
    std::unique_ptr<std::FILE, CloseFile> m_stream;
    std::optional<AtomicFile> m_file;
    bool m_failed = false;
};

/// Writes all of an Output.
bool writeOutput(const std::string &file, std::string_view bytes);

/// Puts the one line "zoltc: FILE: REASON" on standard error and returns Unusable.
int unusable(std::string_view file, std::string_view reason);

} // namespace zolt::cli
