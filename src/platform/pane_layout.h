#pragma once

#include "platform/pane_look.h"

#include <QFont>
#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <array>
#include <optional>
#include <vector>

namespace zolt {

/// The layout of a text pane's document. Qt's own one knows how many display
/// lines a paragraph has once it has been shown; this one knows it always, since
/// it breaks the lines itself: the width of a line is the sum of its characters'
/// widths, as the pane's font has neither ligatures nor kerning. So the document
/// finds the display line of any place by its tree of paragraphs, and the scroll
/// bars are right.
///
/// A line is broken behind blanks, which may hang over the edge, and a word that
/// is longer than a line anywhere. How a paragraph looks (PaneLook) moves no break.
class PaneLayout : public QPlainTextDocumentLayout {
    Q_OBJECT

public:
    /// The width is that of the view, if it wraps.
    PaneLayout(QTextDocument *document, const QWidget *view, bool wraps);

    bool wraps() const { return m_wraps; }

    const PaneLook &look() const { return m_look; }
    void setShows(const PaneShows &shows);
    /// The document gets a text stretch by stretch, until all of it is in.
    void beginText(std::string_view text) { m_look.beginText(text); }
    bool isGettingText() const { return m_look.isGettingText(); }
    void endText() { m_look.endText(); }
    void setSelection(PaneStretch selection) { m_look.setSelection(selection); }

    /// Lays a paragraph out, if that isn't done.
    void layOut(const QTextBlock &block) const;
    /// The same anew, if it is to look otherwise now.
    void refresh(QTextBlock block) const;
    /// Whether what has been laid out since the document's size was told made it larger.
    bool hasGrown() const;
    /// Tells of the size if so; gives whether it has.
    bool reportSize();
    /// The room for a display line, in pixels.
    qreal lineWidth() const;
    /// The width of a digit in the pane's font, in pixels.
    qreal columnWidth() const;

    /// Counts all display lines anew, for a view of another width.
    void countAllLines();

    QRectF blockBoundingRect(const QTextBlock &block) const override;
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame *frame) const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    void noteContents(int from, int removed, int added);
    PaneLook::Formats lookOf(const QTextBlock &block, PaneLook::Width width) const;
    void setFormats(const QTextBlock &block, const PaneLook::Formats &formats) const;
    /// False if fonts of a look make a line wider than the view, which breaks it elsewhere.
    bool makeLines(const QTextBlock &block) const;
    /// Keeps the width of lines that a look makes wider than their characters' sum.
    void noteLookWidth(const QTextBlock &block) const;

    void measureFont();
    int widthOf(QChar character) const;
    int availableWidth() const;
    /// Where the display line that begins at `start` ends.
    qsizetype lineEnd(QStringView text, qsizetype start) const;
    int countLines(const QTextBlock &block) const;
    void count(QTextBlock block);
    /// The same for the paragraph in which is typed, with what an input method
    /// is composing there.
    void countLaidOut(QTextBlock block);
    void noteWidth(const QTextBlock &block);

    const QWidget *m_view;
    bool m_wraps;
    mutable PaneLook m_look;
    bool m_lookChanged = false;                  // of characters elsewhere than the change under way
    mutable std::optional<PaneStretch> m_marked; // dirty, for Qt's sake alone: from, length
    bool m_isInChange = false;                   // Qt has told of characters and not yet had them laid out
    std::optional<QFont> m_font;                 // that the widths are of
    std::array<int, 256> m_byteWidths{};         // in 1/64 pixels, as all widths here
    int m_greatestByteWidth = 0;
    QSizeF m_reportedSize;
    mutable qint64 m_widestLine = 0; // seen since the lines were counted; if not wrapping
};

} // namespace zolt
