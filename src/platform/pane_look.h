#pragma once

#include "hp48/style_runs.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QTextLayout>
#include <array>
#include <optional>
#include <vector>

class QTextBlock;
class QTextDocument;

namespace zolt {

/// What a text pane shows beside the characters of its document.
struct PaneShows {
    /// Runs in their styles' fonts, their codes dim, codes that do nothing in a warning colour.
    bool styles = false;
    /// Runs of picture cells as dots, but for those that hold the caret or selected text:
    /// of the rows of a picture all do where lines wrap, since its rows are drawn together.
    bool pictures = false;
    /// Where the calculator breaks a line.
    bool limit = false;

    bool operator==(const PaneShows &) const = default;
};

/// A stretch of a paragraph, in characters from its start.
struct PaneStretch {
    int begin;
    int end;

    bool operator==(const PaneStretch &) const = default;
};

/// How the paragraphs of a text pane look: the formats of their layouts. The document
/// itself has none, so that neither undo nor a copy knows of them.
class PaneLook {
public:
    PaneLook(const QTextDocument &document, bool wraps) : m_document(document), m_wraps(wraps) {}

    const PaneShows &shows() const { return m_shows; }
    void setShows(const PaneShows &shows);

    /// The document begins to get this text, stretch by stretch, and has it all.
    void beginText(std::string_view bytes);
    bool isGettingText() const { return m_isGrowing; }
    void endText() { m_isGrowing = false; }
    /// The document's characters have changed. Gives whether characters elsewhere can
    /// look different now.
    bool followChange(int from, int removed, int added);
    /// Whether the document is as it was when the last change was followed.
    bool isUpToDate() const;

    /// Where caret and selection are, in positions of the document.
    void setSelection(PaneStretch selection) { m_selection = selection; }
    /// The font and the colours that the formats build on.
    void setGround(const QFont &font, const QColor &text, const QColor &background);

    /// Fonts as they are, or none of them wider than the pane's, or none.
    enum Width { Natural, Squeezed, Plain };
    using Formats = QList<QTextLayout::FormatRange>;
    Formats formatsOf(const QTextBlock &block, Width width) const;
    static bool hasCells(const QTextBlock &block) { return !cellRuns(block).empty(); }
    /// Whether a paragraph is a row of a picture: cells and nothing else.
    static bool isPictureRow(const QTextBlock &block);
    /// A picture of more rows isn't drawn together.
    static constexpr int kMostRows = 400;
    /// Whether a format hides picture cells, so that their dots can be drawn.
    static bool isPicture(const QTextLayout::FormatRange &range);

    /// Whether a paragraph shows more than its characters: one that is longer than a
    /// key's time allows doesn't.
    static bool isShort(const QTextBlock &block);

    QColor limitColour() const { return m_limit; }

private:
    static std::vector<PaneStretch> cellRuns(const QTextBlock &block);
    /// Whether caret or selection touches a run.
    bool isInUse(const QTextBlock &block, PaneStretch run) const;
    /// Whether they touch another row of the picture of which a paragraph is one.
    bool isPictureInUse(const QTextBlock &row) const;
    /// The codes are read when they are asked for: the pane may be a hidden one.
    void forgetCodes();
    void readCodes(std::string_view text) const;
    const StyleRuns &runs() const;
    void makeFormats();
    const QTextCharFormat &formatOfStyle(Style style, Width width) const;
    QTextCharFormat madeFormatOfStyle(Style style, Width width) const;

    const QTextDocument &m_document;
    bool m_wraps;
    PaneShows m_shows;
    mutable StyleRuns m_runs; // of the document, if styles are shown
    mutable bool m_knowsCodes = false;
    bool m_isGrowing = false; // into the text whose codes are known
    int m_length = 0;         // of the document, with its last line end
    PaneStretch m_selection{0, 0};

    std::optional<QFont> m_font;
    QColor m_text;
    QColor m_background;
    QColor m_limit;
    /// By Width; those that were asked for.
    mutable std::array<std::array<std::optional<QTextCharFormat>, kStyleCount>, 2> m_styleFormats;
    QTextCharFormat m_codeFormat;
    QTextCharFormat m_warningFormat;
    QTextCharFormat m_pictureFormat;
};

} // namespace zolt
