#include "hp48/word_wrap.h"

#include "core/reporter.h"
#include "hp48/word_wrap_fold.h"
#include "hp48/word_wrap_join.h"
#include "hp48/word_wrap_reader.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zolt {

namespace {

/// A position between two words, and the columns of all that stands in front of it.
struct WordEnd {
    std::size_t position = 0;
    std::size_t width = 0;
};

/// A line in work: what the fold makes of it, and how much room is used.
class LineInWork {
public:
    LineInWork(std::string_view text, std::size_t columns) : m_text(text), m_columns(columns) {}

    /// Takes a word with its blanks. False if it has no room.
    bool takeWord(WordEnd end) {
        const std::size_t cutsBefore = m_fold.cuts();
        m_fold.take(m_text, m_taken, end.position);
        m_taken = end.position;
        const bool isCut = m_fold.cuts() != cutsBefore;
        if (isCut)
            m_start = end.width - std::min(end.width, m_fold.used());
        return !isCut && m_fold.canEndHere() && end.width - m_start <= m_columns;
    }

    /// Whether a line end can stand here. Where it can't the fold itself makes one.
    bool canEndHere() const { return m_fold.canEndHere(); }

    /// Takes the text's own line end, up to `end`.
    void takeLineEnd(WordEnd end) {
        m_fold.take(m_text, m_taken, end.position);
        m_taken = end.position;
        m_start = end.width;
    }

    /// Begins a line at a position, in the place of what stood before.
    void breakAt(std::size_t width) {
        m_fold.take(kLineEnd, 0, kLineEnd.size());
        m_start = width;
    }

private:
    std::string_view m_text;
    std::size_t m_columns;
    FoldColumns m_fold;
    std::size_t m_taken = 0;
    /// The columns in front of the shown line.
    std::size_t m_start = 0;
};

class Wrapper {
public:
    Wrapper(std::string_view text, LineRange range, int columns)
        : m_text(text),
          m_range(range),
          m_copied(range.begin),
          m_line(text, static_cast<std::size_t>(columns)) {
        m_wrapped.reserve((range.end - range.begin) / 8 * 9);
    }

    std::optional<std::string> run(const Progress &progress) {
        ShownItems items(m_text);
        Reporter reporter(progress, m_range.end);
        auto item = items.next();
        for (; item && item->begin <= m_range.end; item = items.next()) {
            if (!reporter.goOn(item->begin))
                return std::nullopt;
            take(*item);
        }
        if (!item)
            endWord(m_text.size());
        m_wrapped.append(m_text, m_copied, m_range.end - m_copied);
        return std::move(m_wrapped);
    }

private:
    /// A place where the line can be broken.
    struct Gap {
        std::size_t position;
        std::size_t width;
        /// The line as it was there.
        LineInWork line;
    };

    void take(const ShownItem &item) {
        using enum ShownItem::Kind;
        if (item.kind == LineEnd || (item.kind == Picture && spansLines(item, m_text))) {
            endLine(item);
            return;
        }
        if (item.kind != Blank && m_facts.afterBlank()) {
            endWord(item.lead);
            const bool inRange = item.lead >= m_range.begin && item.lead <= m_range.end;
            if (inRange && item.isFree && m_facts.canBreak() && m_line.canEndHere())
                m_nextGap = Gap{item.lead, m_width, m_line};
        }
        m_facts.take(item, m_text);
        m_width += widthOf(item);
    }

    /// A cell of a picture is as wide as a character.
    std::size_t widthOf(const ShownItem &item) const {
        if (item.kind == ShownItem::Kind::Picture)
            return (item.end - item.begin) / kCellLength;
        return item.isDouble ? 2 : 1;
    }

    /// Takes a line end, or a picture of several rows, behind which the menu entry goes
    /// on that its first row is part of.
    void endLine(const ShownItem &item) {
        endWord(item.begin);
        m_line.takeLineEnd({item.end, m_width});
        m_gap.reset();
        if (item.kind == ShownItem::Kind::LineEnd)
            m_facts.startNext();
        else
            m_facts.take(item, m_text);
    }

    /// Ends a word with the blanks behind it, and breaks the line if it has no room.
    void endWord(std::size_t position) {
        if (m_nextGap && m_facts.wordCanLead()) {
            m_gap = m_nextGap;
            m_wordsBehindGap.clear();
        }
        m_nextGap.reset();
        const WordEnd end{position, m_width};
        if (m_gap)
            m_wordsBehindGap.push_back(end);
        if (!m_line.takeWord(end) && m_gap)
            breakLine();
    }

    void breakLine() {
        m_wrapped.append(m_text, m_copied, m_gap->position - m_copied).append(kLineEnd);
        m_copied = m_gap->position;
        m_line = m_gap->line;
        m_line.breakAt(m_gap->width);
        for (const WordEnd &end : m_wordsBehindGap)
            m_line.takeWord(end);
        m_gap.reset();
    }

    std::string_view m_text;
    LineRange m_range;
    std::string m_wrapped;
    std::size_t m_copied;
    LineInWork m_line;
    ShownLine m_facts;
    std::size_t m_width = 0;
    /// The last place where the line can be broken.
    std::optional<Gap> m_gap;
    std::vector<WordEnd> m_wordsBehindGap;
    /// The place in front of the word in work, which may prove unfit.
    std::optional<Gap> m_nextGap;
};

Progress halfOf(const Progress &progress, std::size_t half) {
    if (!progress)
        return {};
    return [&progress, half](std::size_t step, std::size_t total) {
        return progress(half * total + step, 2 * total);
    };
}

/// The lines that a selection touches.
LineRange linesOf(std::string_view document, std::size_t begin, std::size_t length) {
    begin = std::min(begin, document.size());
    const std::size_t last = begin + std::max<std::size_t>(std::min(length, document.size() - begin), 1) - 1;
    const auto lineBegin = [&](std::size_t position) {
        // A line end belongs to the line that it ends.
        const std::size_t lineEnd =
            position < 2 ? std::string_view::npos : document.rfind(kLineEnd, position - 2);
        return lineEnd == std::string_view::npos ? 0 : lineEnd + kLineEnd.size();
    };
    const std::size_t lastBegin = lineBegin(last);
    return {lineBegin(begin), std::min(document.find(kLineEnd, lastBegin), document.size())};
}

/// How much of a document's two ends is quotes, which the calculator doesn't show.
std::pair<std::size_t, std::size_t> quotesAround(std::string_view document) {
    const std::size_t front = document.starts_with('"') ? 1 : 0;
    return {front, document.substr(front).ends_with('"') ? 1 : 0};
}

/// What stands in place of the lines of `range`.
std::optional<std::string> wrapRange(std::string_view document, LineRange range, const WrapOptions &options,
                                     const Progress &progress) {
    const auto [front, back] = quotesAround(document);
    std::string_view shown = document.substr(front, document.size() - front - back);
    LineRange inner{range.begin - std::min(range.begin, front),
                    std::min(range.end - std::min(range.end, front), shown.size())};
    const std::string before(document.substr(range.begin, front + inner.begin - range.begin));
    const std::string behind(document.substr(front + inner.end, range.end - front - inner.end));
    std::optional<std::string> joined;
    if (options.reflow) {
        joined = joinWrappedLines(shown, inner, halfOf(progress, 0));
        if (!joined)
            return std::nullopt;
        shown = *joined;
    }
    auto wrapped =
        Wrapper(shown, inner, options.columns).run(options.reflow ? halfOf(progress, 1) : progress);
    if (!wrapped || (before.empty() && behind.empty()))
        return wrapped;
    return before + *wrapped + behind;
}

} // namespace

std::optional<std::string> wrapAtWords(std::string_view document, const WrapOptions &options,
                                       const Progress &progress) {
    return wrapRange(document, {0, document.size()}, options, progress);
}

std::optional<WrappedLines> wrapLinesAtWords(std::string_view document, std::size_t begin, std::size_t length,
                                             const WrapOptions &options, const Progress &progress) {
    const LineRange range = linesOf(document, begin, length);
    auto text = wrapRange(document, range, options, progress);
    if (!text)
        return std::nullopt;
    return WrappedLines{range.begin, range.end - range.begin, std::move(*text)};
}

} // namespace zolt
