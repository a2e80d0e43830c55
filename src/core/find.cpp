#include "core/find.h"

#include "core/letter_case.h"

#include <algorithm>
#include <cstring>

namespace zolt {

namespace {

/// Characters looked at between two calls of the progress: a small part of a
/// millisecond's work.
constexpr std::size_t kStretch = 1 << 16;

/// The place of `find` in `text`, from 0. Linear also where most of `find` matches
/// everywhere, which string_view::find isn't.
std::size_t placeOf(std::string_view find, std::string_view text) {
    const void *place = ::memmem(text.data(), text.size(), find.data(), find.size());
    return place ? static_cast<std::size_t>(static_cast<const char *>(place) - text.data())
                 : std::string_view::npos;
}

/// One run over a text from match to match.
class Search {
public:
    Search(std::string_view text, const FindOptions &options, const Progress &progress)
        : m_text(text), m_find(options.find), m_progress(progress) {
        if (options.distinguirMaiúsculas)
            return;
        m_capitalText = capitals(text);
        m_capitalFind = capitals(options.find);
        m_text = m_capitalText;
        m_find = m_capitalFind;
    }
    Search(const Search &) = delete;
    Search &operator=(const Search &) = delete;

    /// The next match at or behind `from`, counted from 0.
    ScanResult next(std::size_t from) {
        if (from >= m_text.size())
            return {};
        while (from < m_text.size()) {
            if (from >= m_stretchEnd && !beginStretch(from))
                return {ScanResult::Stopped, from + 1};
            const std::string_view stretch = m_text.substr(from, m_stretchEnd - from + m_find.size());
            if (const std::size_t place = placeOf(m_find, stretch); place != std::string_view::npos)
                return {ScanResult::Matched, from + place + 1};
            from = m_stretchEnd;
        }
        return {ScanResult::NotFound, m_text.size()};
    }

private:
    bool beginStretch(std::size_t from) {
        // Not shorter than what is looked for, so that overlaps stay a part of the work.
        m_stretchEnd = from + std::max(kStretch, m_find.size());
        return goOn(m_progress, from + 1, m_text.size());
    }

    std::string m_capitalText;
    std::string m_capitalFind;
    std::string_view m_text;
    std::string_view m_find;
    const Progress &m_progress;
    std::size_t m_stretchEnd = 0;
};

} // namespace

ScanResult scan(std::string_view text, const FindOptions &options, std::size_t posiçãoCursor,
                const Progress &progress) {
    return Search(text, options, progress).next(posiçãoCursor);
}

ReplaceAllResult replaceAll(std::string_view text, const FindOptions &options, std::string_view replacement,
                            const Progress &progress) {
    ReplaceAllResult result;
    if (options.find.empty() || replacement.empty())
        return result;
    Search search(text, options, progress);
    std::size_t done = 0;
    ScanResult found = search.next(done);
    for (; found.outcome == ScanResult::Matched; found = search.next(done)) {
        result.offsets.push_back(found.position - 1);
        done = result.offsets.back() + options.find.size();
    }
    result.replacements = result.offsets.size();
    result.text = textWithReplaced(text, result.offsets, options.find.size(), replacement);
    result.posiçãoCursor = result.text.size() - (text.size() - done);
    if (found.outcome == ScanResult::Stopped) {
        result.outcome = ReplaceAllResult::Stopped;
        result.caret = result.posiçãoCursor + (found.position - 1 - done);
        return result;
    }
    const bool endedAtTheEnd = result.replacements > 0 && done == text.size();
    result.outcome = endedAtTheEnd ? ReplaceAllResult::EndedAtTheEnd : ReplaceAllResult::Finished;
    result.caret = result.text.size();
    return result;
}

std::string textWithReplaced(std::string_view text, const std::vector<std::size_t> &offsets,
                             std::size_t length, std::string_view replacement) {
    std::string result;
    std::size_t done = 0;
    for (const std::size_t offset : offsets) {
        const std::size_t start = std::clamp(offset, done, text.size());
        result.append(text.substr(done, start - done)).append(replacement);
        done = start + std::min(length, text.size() - start);
    }
    return result.append(text.substr(done));
}

} // namespace zolt
