#include "platform/rich_text_characters.h"
#include "platform/rich_text_document.h"
#include "platform/text_offsets.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextFragment>
#include <algorithm>

namespace zolt {

namespace {

/// Gives the positions of rising offsets in one walk over the paragraphs.
class OffsetWalk {
public:
    explicit OffsetWalk(const QTextDocument &document)
        : m_block(document.begin()), m_length(textLength(document)) {}

    /// One between CR and LF gives the position before the line end.
    int position(std::size_t offset) { return find(offset).before; }
    /// One between CR and LF gives the position behind the line end.
    int positionOfEnd(std::size_t offset) { return find(offset).behind; }

private:
    struct Positions {
        int before;
        int behind;
    };

    Positions find(std::size_t offset) {
        const auto wanted = static_cast<qsizetype>(std::min(offset, static_cast<std::size_t>(m_length)));
        while (m_block.next().isValid() && startOf(m_block.next(), m_number + 1) <= wanted) {
            m_block = m_block.next();
            ++m_number;
        }
        const auto inBlock = static_cast<int>(wanted - startOf(m_block, m_number));
        const int lineEnd = m_block.length() - 1;
        return {m_block.position() + std::min(inBlock, lineEnd), m_block.position() + inBlock};
    }
    /// Each block before one adds a character that Qt doesn't count.
    static qsizetype startOf(const QTextBlock &block, int number) {
        return qsizetype{block.position()} + number;
    }

    QTextBlock m_block;
    int m_number = 0;
    qsizetype m_length;
};

/// A run of characters of one format in a walk over the document.
class FragmentWalk {
public:
    explicit FragmentWalk(const QTextDocument &document) : m_block(document.begin()), m_it(m_block.begin()) {}

    /// Goes on to the run that holds a position; false for a line end, which is in none.
    bool goTo(int position) {
        while (position >= m_block.position() + m_block.length()) {
            m_block = m_block.next();
            m_it = m_block.begin();
        }
        while (!m_it.atEnd() && m_it.fragment().position() + m_it.fragment().length() <= position)
            ++m_it;
        return !m_it.atEnd();
    }
    QTextFragment fragment() const { return m_it.fragment(); }
    QTextCharFormat format() const { return m_it.atEnd() ? lineEndFormat(m_block) : fragment().charFormat(); }

private:
    QTextBlock m_block;
    QTextBlock::iterator m_it;
};

} // namespace

QTextCharFormat lineEndFormat(const QTextBlock &block) {
    return block.next().isValid() ? block.next().charFormat() : block.charFormat();
}

void RichTextDocument::reformTabs(int from, int to) {
    std::vector<Edit> edits;
    for (QTextBlock block = findBlock(from); block.isValid() && block.position() < to; block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const int start = std::max(fragment.position(), from);
            const int end = std::min(fragment.position() + fragment.length(), to);
            const QTextCharFormat format = fragment.charFormat();
            const FontKind kind = fontKindOf(format);
            const QChar other =
                shownTab(kind == FontKind::Foreign ? FontKind::Calculator : FontKind::Foreign);
            QString text =
                start < end ? fragment.text().mid(start - fragment.position(), end - start) : QString();
            if (text.contains(other))
                edits.push_back({start, end, text.replace(other, shownTab(kind)), format});
        }
    }
    edit(edits);
}

void RichTextDocument::replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                                   std::string_view bytes) {
    edit(editsOf(offsets, length, bytes));
}

std::vector<RichTextDocument::Edit> RichTextDocument::editsOf(const std::vector<std::size_t> &offsets,
                                                              std::size_t length,
                                                              std::string_view bytes) const {
    std::vector<Edit> edits;
    OffsetWalk starts(*this);
    OffsetWalk ends(*this);
    FragmentWalk walk(*this);
    QTextFragment latest; // that all of the last edit lies in
    QString latestText;
    for (const std::size_t offset : offsets) {
        const int from = std::max(starts.position(offset), edits.empty() ? 0 : edits.back().to);
        const int to = ends.positionOfEnd(offset + length);
        if (from >= to)
            continue;
        const bool inFragment = walk.goTo(from);
        const QTextCharFormat format = textFormat(walk.format());
        const QString characters = shownText(bytes, fontKindOf(format));
        // One edit for all of a run, but pictures beside a match stay what they are.
        if (inFragment && walk.fragment() == latest) {
            Edit &last = edits.back();
            last.characters += latestText.mid(last.to - latest.position(), from - last.to) + characters;
            last.to = to;
        } else {
            edits.push_back({from, to, characters, format});
            latest = {};
        }
        const bool isText = inFragment && !pictureOf(walk.fragment().charFormat());
        const bool isWithin = isText && to <= walk.fragment().position() + walk.fragment().length();
        if (!isWithin) {
            latest = {};
        } else if (walk.fragment() != latest) {
            latest = walk.fragment();
            latestText = latest.text();
        }
    }
    return edits;
}

void RichTextDocument::edit(const std::vector<Edit> &edits) {
    QTextCursor cursor(this);
    cursor.beginEditBlock();
    // From the last on, so that the others stay where they are.
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
        cursor.setPosition(edit->from);
        cursor.setPosition(edit->to, QTextCursor::KeepAnchor);
        cursor.insertText(edit->characters, edit->format);
    }
    cursor.endEditBlock();
}

void RichTextDocument::settleFirstLine() {
    const QTextBlock block = begin();
    const auto it = block.begin();
    if (!it.atEnd())
        setEmptyFormat(textFormat(it.fragment().charFormat()));
    else if (block.next().isValid())
        setEmptyFormat(textFormat(block.next().charFormat()));
}

void RichTextDocument::setEmptyFormat(const QTextCharFormat &format) {
    if (begin().charFormat() != format)
        QTextCursor(this).setBlockCharFormat(format);
}

} // namespace zolt
