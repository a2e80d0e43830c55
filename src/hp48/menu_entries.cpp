#include "hp48/menu_entries.h"

#include <algorithm>

#include "core/codes.h"
#include "core/reporter.h"

namespace zolt {

std::optional<std::vector<MenuEntry>> menuEntries(std::string_view characters, const Progress &progress) {
    std::vector<MenuEntry> entries;
    Reporter reporter(progress, characters.size());
    int line = 1;
    std::size_t begin = 0;
    while (true) {
        if (!reporter.goOn(begin))
            return std::nullopt;
        const std::size_t lineEnd = characters.find(kLineEnd, begin);
        if (lineEnd == std::string_view::npos)
            return entries;
        ++line;
        begin = lineEnd + kLineEnd.size();
        if (characters.substr(begin).starts_with('*')) {
            // One more than an entry's length, so that a line end is seen whose first
            // character is the last of these.
            const std::string_view text = characters.substr(begin, kColumns);
            const std::size_t end = characters.substr(begin, kColumns + 1).find(kLineEnd);
            entries.push_back({line, std::string(text.substr(0, end))});
        }
    }
}

std::size_t endOfLine(std::string_view characters, int line) {
    std::size_t end = characters.find(kLineEnd);
    while (end != std::string_view::npos && --line > 0)
        end = characters.find(kLineEnd, end + kLineEnd.size());
    return std::min(end, characters.size());
}

} // namespace zolt
