#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zolt::desktop {

// Kinds of files by their names, as the Shared MIME-info Database Specification has them.

/// The type of a format that this program names: "ZOLT Text Format" is
/// application/x-zolt-text.
std::string mimeTypeOf(std::string_view format);
/// How all these types begin.
inline constexpr std::string_view kOwnTypes = "application/x-zolt-";
/// The name that icon themes have for a type's icon.
std::string iconNameOf(std::string type);

/// Whether file names can end in a point and this, and the databases can hold it: no "/",
/// and no ":", which separates their fields. An empty extension is one.
bool canBeExtension(std::string_view extension);

/// The pattern of all names with an extension, in whatever case. Signs that patterns give
/// a meaning stand for themselves.
std::string patternOf(std::string_view extension);

/// A file for the database's folder "packages", which gives all names of a pattern one
/// type, whatever types others give them. `icon` is an icon's name; `parent` is a type
/// whose programs may open the files too, or empty.
std::string mimePackage(std::string_view type, std::string_view format, std::string_view icon,
                        std::string_view pattern, std::string_view parent = {});

/// The types of file names, from the files globs2 and subclasses of several folders.
class FileKinds {
public:
    /// Takes a folder's files, after those of the folders that go before it.
    void addGlobs(std::string_view globs2);
    void addSubclasses(std::string_view subclasses);

    /// The type of a file with this name; empty if no pattern matches. Types that begin
    /// with `left`, unless it is empty, are left out.
    std::string typeOf(const std::string &name, std::string_view left = {}) const;
    /// A type and all that it is a kind of, the nearest first.
    std::vector<std::string> withParents(const std::string &type) const;

private:
    struct Glob {
        int weight;
        std::string type;
        std::string pattern;
        bool matchesCase;
    };

    const Glob *best(const std::string &name, bool inSmallLetters, std::string_view left) const;

    std::vector<Glob> m_globs;
    /// Types of which later folders' patterns don't count.
    std::unordered_set<std::string> m_closed;
    std::unordered_map<std::string, std::vector<std::string>> m_parents;
};

} // namespace zolt::desktop
