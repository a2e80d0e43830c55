#include "core/find.h"

#include "core/letter_case.h"

#include <algorithm>
#include <cstring>

namespace zolt {

namespace {

/// Characters looked at between two calls of the progress: at last a small part of a
/// millisecond's work. The next match is mostly near.
constexpr std::size_t kFirstStretch = 1 << 12;
constexpr std::size_t kLongestStretch = 1 << 16;

/// The place of `find` in `text`, from 0. Linear also where most of `find` matches
/// everywhere, which string_view::find isn't.
std::size_t placeOf(std::string_view find, std::string_view text) {
    const void *place = ::memmem(text.data(), text.size(), find.data(), find.size());
    return place ? static_cast<std::size_t>(static_cast<const char *>(place) - text.data())
                 : std::string_view::npos;
}

/// One run over a text from match to match. It holds one stretch of the text.
class Search {
public:
    Search(const TextReader &text, std::size_t size, const FindOptions &options, const Progress &progress)
        : m_text(text),
          m_size(size),
          m_anyCase(!options.distinguirMaiúsculas),
          m_find(m_anyCase ? capitals(options.find) : std::string(options.find)),
          m_progress(progress) {}
    Search(const Search &) = delete;
    Search &operator=(const Search &) = delete;

    /// The next match at or behind `from`, counted from 0.
    ScanResult next(std::size_t from) {
        if (from >= m_size)
            return {};
        while (from < m_size) {
            if (from >= m_end && !beginStretch(from))
                return {ScanResult::Stopped, from + 1};
            const std::string_view stretch =
                std::string_view(m_stretch).substr(std::min(from - m_begin, m_stretch.size()));
            if (const std::size_t place = placeOf(m_find, stretch); place != std::string_view::npos)
                return {ScanResult::Matched, from + place + 1};
            from = m_end;
        }
        return {ScanResult::NotFound, m_size};
    }

private:
    bool beginStretch(std::size_t from) {
        if (!goOn(m_progress, from + 1, m_size))
            return false;
        m_begin = from;
        // Not shorter than what is looked for, so that overlaps stay a part of the work.
        m_end = from + std::max(m_length, m_find.size());
        m_length = std::min(2 * m_length, kLongestStretch);
        m_stretch = m_text(from, m_end - from + m_find.size());
        if (m_anyCase)
            makeCapitals(m_stretch);
        return true;
    }

    const TextReader &m_text;
    std::size_t m_size;
    bool m_anyCase;
    std::string m_find;
    const Progress &m_progress;
    std::string m_stretch;                // with what a match that begins in it may need behind it
    std::size_t m_length = kFirstStretch; // of the next one
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

TextReader readerOf(std::string_view text) {
    return
        [text](std::size_t offset, std::size_t length) { return std::string(text.substr(offset, length)); };
}

} // namespace

ScanResult scan(const TextReader &text, std::size_t size, const FindOptions &options,
                std::size_t posiçãoCursor, const Progress &progress) {
    return Search(text, size, options, progress).next(posiçãoCursor);
}

ScanResult scan(std::string_view text, const FindOptions &options, std::size_t posiçãoCursor,
                const Progress &progress) {
    return scan(readerOf(text), text.size(), options, posiçãoCursor, progress);
}

ReplaceAllResult replaceAll(std::string_view text, const FindOptions &options, std::string_view replacement,
                            const Progress &progress) {
    ReplaceAllResult result;
    if (options.find.empty() || replacement.empty())
        return result;
    const TextReader reader = readerOf(text);
    Search search(reader, text.size(), options, progress);
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
