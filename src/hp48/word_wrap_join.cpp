#include "hp48/word_wrap_join.h"

#include "core/codes.h"
#include "core/reporter.h"
#include "hp48/word_wrap_reader.h"

namespace zolt {

namespace {

class Joiner {
public:
    Joiner(std::string_view text, LineRange range) : m_text(text), m_range(range) {
        m_joined.reserve(text.size());
    }

    std::optional<std::string> run(const Progress &progress) {
        ShownItems items(m_text);
        Reporter reporter(progress, m_text.size());
        while (const auto item = items.next()) {
            if (!reporter.goOn(item->begin))
                return std::nullopt;
            if (item->kind == ShownItem::Kind::LineEnd)
                endLine(*item);
            else
                take(*item);
        }
        m_joined.append(m_text, m_copied);
        return std::move(m_joined);
    }

private:
    void endLine(const ShownItem &item) {
        const std::size_t position = item.begin;
        const std::size_t behind = position + kLineEnd.size();
        const bool inRange = position >= m_range.begin && behind <= m_range.end;
        // A wrap puts its line ends in front of codes that open a run; and a code that
        // was taken out can stand between the two characters of another's.
        const bool isPlain = item.lead == position && m_text.substr(position, kLineEnd.size()) == kLineEnd;
        m_wrapEnd.reset();
        if (inRange && isPlain && item.isFree && m_line.canBreak())
            m_wrapEnd = position;
        m_line.startNext();
    }

    /// A line end can be a wrap's up to the end of the word behind it.
    void take(const ShownItem &item) {
        m_line.take(item, m_text);
        if (!m_wrapEnd)
            return;
        if (m_line.wordCanLead()) {
            m_joined.append(m_text, m_copied, *m_wrapEnd - m_copied);
            m_copied = *m_wrapEnd + kLineEnd.size();
            m_wrapEnd.reset();
        } else if (m_line.afterBlank() || spansLines(item, m_text)) {
            m_wrapEnd.reset();
        }
    }

    std::string_view m_text;
    LineRange m_range;
    std::string m_joined;
    std::size_t m_copied = 0;
    ShownLine m_line;
    std::optional<std::size_t> m_wrapEnd;
};

} // namespace

std::optional<std::string> joinWrappedLines(std::string_view text, LineRange &range,
                                            const Progress &progress) {
    auto joined = Joiner(text, range).run(progress);
    if (joined)
        range.end -= text.size() - joined->size();
    return joined;
}

} // namespace zolt
