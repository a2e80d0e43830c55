#include "zoltc/command.h"

#include "core/file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sys/stat.h>

namespace zolt::cli {

namespace {

void put(std::FILE *stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
}

std::string optionForm(const Option &option) {
    std::string form("--");
    form.append(option.name);
    if (!option.value.empty())
        form.append(" ").append(option.value);
    return form;
}

std::string usageLine(const Command &command) {
    std::string line = "zoltc " + std::string(command.name);
    for (const Option &option : command.options)
        line += " [" + optionForm(option) + "]" + (option.repeated ? "..." : "");
    return line + " " + std::string(command.usage);
}

void printHelp(const Command &command) {
    std::string text = "usage: " + usageLine(command) + "\n\n" + std::string(command.help) + "\n";
    if (!command.options.empty())
        text += "\n";
    for (const Option &option : command.options) {
        std::string form = "  " + optionForm(option);
        form.resize(std::max<std::size_t>(form.size() + 2, 26), ' ');
        text += form + std::string(option.help) + "\n";
    }
    text += "\n\"-\" as a name is standard input or standard output.\n";
    put(stdout, text);
}

void printOverview() {
    std::string text = "usage: zoltc COMMAND [OPTIONS] INPUT [OUTPUT]\n\n";
    for (const Command &command : commands()) {
        std::string name = "  " + std::string(command.name);
        name.resize(14, ' ');
        text += name + std::string(command.help.substr(0, command.help.find('\n'))) + "\n";
    }
    text += "\n\"zoltc COMMAND --help\" tells more, \"zoltc --version\" the version.\n"
            "Exit: 0 done, 1 refused by the rules, 2 bad usage or a file that can't be read or written.\n";
    put(stdout, text);
}

/// Bad usage is one line as any other failure; the help is asked for.
int badUsage(const std::string &about, const std::string &reason) {
    const bool known = std::any_of(commands().begin(), commands().end(),
                                   [&](const Command &command) { return command.name == about; });
    return unusable(about, reason + "; see zoltc " + (known ? about + " " : "") + "--help");
}

/// Takes the words behind the command apart. Gives the reason of bad usage, else nothing.
std::optional<std::string> takeApart(const Command &command, const std::vector<std::string> &words,
                                     Arguments &arguments) {
    bool onlyFiles = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string &word = words[i];
        if (onlyFiles || word == "-" || !word.starts_with("-")) {
            arguments.files.push_back(word);
            continue;
        }
        if (word == "--") {
            onlyFiles = true;
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.starts_with("--") ? word.substr(2, equals - 2) : std::string();
        const auto option = std::find_if(command.options.begin(), command.options.end(),
                                         [&](const Option &o) { return !name.empty() && o.name == name; });
        if (option == command.options.end())
            return "unknown option " + word;
        if (option->value.empty()) {
            if (equals != std::string::npos)
                return "option --" + name + " takes no value";
            arguments.options[name];
            continue;
        }
        if (equals == std::string::npos && i + 1 == words.size())
            return "option --" + name + " needs a value";
        arguments.options[name].push_back(equals != std::string::npos ? word.substr(equals + 1) : words[++i]);
    }
    if (arguments.files.size() < command.fewestFiles)
        return "too few names";
    if (arguments.files.size() > command.mostFiles)
        return "too many names";
    return std::nullopt;
}

/// What can't be replaced whole, such as a shell's pipe or /dev/null.
bool isPipeOrDevice(const std::string &file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode));
}

struct CloseFile {
    void operator()(std::FILE *stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseFile>;

bool readStream(std::FILE *stream, std::string_view name, std::string &bytes) {
    bytes.clear();
    char piece[1 << 16];
    while (const std::size_t got = std::fread(piece, 1, sizeof piece, stream)) {
        bytes.append(piece, got);
        if (bytes.size() > kLargestFile) {
            unusable(name, "too large");
            return false;
        }
    }
    if (std::ferror(stream)) {
        unusable(name, "can't be read");
        return false;
    }
    return true;
}

} // namespace

std::string Arguments::value(std::string_view option, std::string_view otherwise) const {
    const auto found = options.find(option);
    return found == options.end() || found->second.empty() ? std::string(otherwise) : found->second.back();
}

std::optional<int> wholeNumber(std::string_view text) {
    int number = 0;
    const char *end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

int unusable(std::string_view file, std::string_view reason) {
    put(stderr, "zoltc: " + std::string(file) + ": " + std::string(reason) + "\n");
    return Unusable;
}

bool readInput(const std::string &file, std::string &bytes) {
    if (file == "-")
        return readStream(stdin, "standard input", bytes);
    if (isPipeOrDevice(file)) {
        const Stream stream(std::fopen(file.c_str(), "rb"));
        if (!stream) {
            unusable(file, std::strerror(errno));
            return false;
        }
        return readStream(stream.get(), file, bytes);
    }
    FileContents contents = readFile(file);
    if (!contents.ok()) {
        unusable(file, contents.reason);
        return false;
    }
    bytes = std::move(contents.bytes);
    return true;
}

void Output::CloseFile::operator()(std::FILE *stream) const {
    if (stream != stdout)
        std::fclose(stream);
}

Output::Output(const std::string &file) : m_name(file) {
    if (file == "-") {
        m_name = "standard output";
        m_stream.reset(stdout);
    } else if (isPipeOrDevice(file)) {
        m_stream.reset(std::fopen(file.c_str(), "wb"));
        m_failed = !m_stream;
    } else {
        m_file.emplace(file);
    }
}

void Output::append(std::string_view piece) {
    if (m_file)
        m_file->append(piece);
    else if (!m_failed)
        m_failed = std::fwrite(piece.data(), 1, piece.size(), m_stream.get()) != piece.size();
}

bool Output::finish() {
    std::string reason;
    if (m_file)
        reason = m_file->commit();
    else if (m_failed || std::fflush(m_stream.get()) != 0)
        reason = "can't be written";
    if (!reason.empty())
        unusable(m_name, reason);
    return reason.empty();
}

bool writeOutput(const std::string &file, std::string_view bytes) {
    Output output(file);
    output.append(bytes);
    return output.finish();
}

int run(const std::vector<std::string> &words) {
    if (words.empty())
        return badUsage("COMMAND", "missing");
    if (words.front() == "--help" || words.front() == "-h" || words.front() == "help") {
        printOverview();
        return Done;
    }
    if (words.front() == "--version") {
        put(stdout, "zoltc " ZOLT_VERSION "\n");
        return Done;
    }
    const auto &table = commands();
    const auto command =
        std::find_if(table.begin(), table.end(), [&](const Command &c) { return c.name == words.front(); });
    if (command == table.end())
        return badUsage(words.front(), "no such command");
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    if (std::find(rest.begin(), rest.end(), "--help") != rest.end()) {
        printHelp(*command);
        return Done;
    }
    Arguments arguments;
    if (const auto reason = takeApart(*command, rest, arguments))
        return badUsage(std::string(command->name), *reason);
    try {
        return command->run(arguments);
    } catch (const std::bad_alloc &) {
        return unusable(command->name, "not enough memory");
    }
}

} // namespace zolt::cli
