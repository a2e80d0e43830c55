#include "desktop/file_kinds.h"

#include "desktop/key_file.h"

#include <algorithm>
#include <cstdlib>
#include <fnmatch.h>

namespace zolt::desktop {

namespace {

/// The largest that a pattern can have: what the user asked for goes before all else.
constexpr char kWeight[] = "100";

std::string escapedXml(std::string_view text) {
    std::string xml;
    for (const char c : text) {
        switch (c) {
        case '&':
            xml += "&amp;";
            break;
        case '<':
            xml += "&lt;";
            break;
        case '>':
            xml += "&gt;";
            break;
        case '"':
            xml += "&quot;";
            break;
        default:
            xml += c;
        }
    }
    return xml;
}

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

} // namespace

std::string mimeTypeOf(std::string_view format) {
    std::string words = inSmallLetters(std::string(format));
    if (words.ends_with(" format"))
        words.resize(words.rfind(' '));
    std::ranges::replace_if(
        words, [](char c) { return !isPlain(c); }, '-');
    return "application/x-" + words;
}

std::string iconNameOf(std::string type) {
    std::ranges::replace(type, '/', '-');
    return type;
}

bool canBeExtension(std::string_view extension) {
    return std::ranges::none_of(extension, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return c == '/' || c == ':' || byte < 0x20 || byte == 0x7F;
    });
}

std::string patternOf(std::string_view extension) {
    // An index of plain endings, as some desktops keep it, finds ASCII alone.
    const bool isAscii = std::ranges::all_of(extension, [](char c) { return (c & 0x80) == 0; });
    std::string pattern = isAscii ? "*." : "*[.]";
    for (const char c : inSmallLetters(std::string(extension))) {
        if (c == '\\')
            pattern += "[\\\\]"; // a backslash escapes even within brackets
        else if (c == '*' || c == '?' || c == '[')
            pattern.append("[").append(1, c).append("]");
        else
            pattern += c;
    }
    return pattern;
}

std::string mimePackage(std::string_view type, std::string_view format, std::string_view icon,
                        std::string_view pattern, std::string_view parent) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
                      "  <mime-type type=\"";
    xml += escapedXml(type) + "\">\n    <comment>" + escapedXml(format) + "</comment>\n";
    if (!parent.empty())
        xml += "    <sub-class-of type=\"" + escapedXml(parent) + "\"/>\n";
    xml += "    <icon name=\"" + escapedXml(icon) + "\"/>\n";
    xml += "    <glob weight=\"" + std::string(kWeight) + "\" pattern=\"" + escapedXml(pattern) + "\"/>\n";
    return xml + "  </mime-type>\n</mime-info>\n";
}

// A line is WEIGHT:TYPE:PATTERN and, after a further colon, flags.
void FileKinds::addGlobs(std::string_view globs2) {
    std::unordered_set<std::string> closed;
    for (const std::string &line : splitAt(globs2, '\n')) {
        const std::vector<std::string> fields = splitAt(line, ':');
        if (line.starts_with('#') || fields.size() < 3 || m_closed.contains(fields[1]))
            continue;
        if (fields[2] == "__NOGLOBS__")
            closed.insert(fields[1]);
        else
            m_globs.push_back({std::atoi(fields[0].c_str()), fields[1], fields[2],
                               fields.size() > 3 && fields[3].find("cs") != std::string::npos});
    }
    m_closed.merge(closed);
}

void FileKinds::addSubclasses(std::string_view subclasses) {
    for (const std::string &line : splitAt(subclasses, '\n'))
        if (const std::size_t blank = line.find(' '); blank != std::string::npos)
            m_parents[line.substr(0, blank)].push_back(line.substr(blank + 1));
}

const FileKinds::Glob *FileKinds::best(const std::string &name, bool inSmallLetters,
                                       std::string_view left) const {
    const auto rank = [](const Glob &glob) { return std::pair(glob.weight, glob.pattern.size()); };
    const Glob *best = nullptr;
    for (const Glob &glob : m_globs)
        if (!(inSmallLetters && glob.matchesCase) && (left.empty() || !glob.type.starts_with(left)) &&
            (!best || rank(glob) > rank(*best)) && ::fnmatch(glob.pattern.c_str(), name.c_str(), 0) == 0)
            best = &glob;
    return best;
}

std::string FileKinds::typeOf(const std::string &name, std::string_view left) const {
    const Glob *found = best(name, false, left);
    if (!found)
        found = best(inSmallLetters(name), true, left);
    return found ? found->type : std::string();
}

std::vector<std::string> FileKinds::withParents(const std::string &type) const {
    std::vector<std::string> types{type};
    const auto add = [&](const std::string &parent) {
        if (std::ranges::find(types, parent) == types.end())
            types.push_back(parent);
    };
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (const auto parents = m_parents.find(types[i]); parents != m_parents.end())
            for (const std::string &parent : std::vector(parents->second))
                add(parent);
        if (types[i].starts_with("text/"))
            add("text/plain");
    }
    // What every file is, whatever it is besides.
    add("application/octet-stream");
    return types;
}

} // namespace zolt::desktop
