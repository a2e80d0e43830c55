#include "desktop/key_file.h"

#include <algorithm>
#include <utility>

namespace zolt::desktop {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// The lines without their ends, blank ones included.
std::vector<std::string_view> linesOf(std::string_view file) {
    std::vector<std::string_view> lines;
    while (!file.empty()) {
        const std::size_t end = std::min(file.find('\n'), file.size());
        lines.push_back(file.substr(0, end));
        file.remove_prefix(std::min(end + 1, file.size()));
    }
    return lines;
}

bool isGroup(std::string_view line) {
    return line.starts_with('[') && trimmed(line).ends_with(']');
}

std::string_view groupName(std::string_view line) {
    line = trimmed(line);
    return line.substr(1, line.size() - 2);
}

bool hasKey(std::string_view line, std::string_view key) {
    const std::size_t sign = line.find('=');
    return sign != std::string_view::npos && !line.starts_with('#') && trimmed(line.substr(0, sign)) == key;
}

} // namespace

std::string valueOf(std::string_view file, std::string_view group, std::string_view key) {
    std::string_view value;
    bool inside = false;
    for (const std::string_view line : linesOf(file)) {
        if (isGroup(line))
            inside = groupName(line) == group;
        else if (inside && hasKey(line, key))
            value = trimmed(line.substr(line.find('=') + 1));
    }
    return std::string(value);
}

std::string withValue(std::string_view file, std::string_view group, std::string_view key,
                      std::string_view value) {
    std::string changed;
    const std::string newLine = value.empty() ? "" : std::string(key) + "=" + std::string(value) + "\n";
    bool inside = false;
    bool written = value.empty();
    std::size_t groupEnd = std::string::npos; // behind the last line of the group that isn't blank
    for (const std::string_view line : linesOf(file)) {
        if (isGroup(line))
            inside = groupName(line) == group;
        else if (inside && hasKey(line, key)) {
            if (!std::exchange(written, true))
                changed += newLine;
            continue;
        }
        changed.append(line).append("\n");
        if (inside && !written && !trimmed(line).empty())
            groupEnd = changed.size();
    }
    if (written)
        return changed;
    if (groupEnd != std::string::npos)
        return changed.insert(groupEnd, newLine);
    if (!changed.empty())
        changed += "\n";
    return changed + "[" + std::string(group) + "]\n" + newLine;
}

std::vector<std::string> splitAt(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0)
            pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pieces;
}

std::vector<std::string> listOf(std::string_view value) {
    return splitAt(value, ';');
}

std::string listValue(const std::vector<std::string> &pieces) {
    std::string value;
    for (const std::string &piece : pieces)
        value.append(piece).append(";");
    return value;
}

std::vector<std::string> without(std::vector<std::string> pieces, std::string_view piece) {
    std::erase(pieces, piece);
    return pieces;
}

std::vector<std::string> withFirst(std::vector<std::string> pieces, std::string_view piece) {
    pieces = without(std::move(pieces), piece);
    pieces.insert(pieces.begin(), std::string(piece));
    return pieces;
}

std::string inSmallLetters(std::string text) {
    for (char &c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

} // namespace zolt::desktop
