#pragma once

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTimer>
#include <unordered_map>
#include <vector>

namespace zolt {

/// The layout of a rich text's document: paragraphs below each other, without frames
/// and tables. Qt's own one moves every paragraph behind a change; this one keeps
/// heights alone and adds them up where they are asked for, so that a key costs as
/// little at a long text's start as at its end.
///
/// A paragraph is laid out when it shows or is asked for. The others have a height
/// estimated from their formats, until the event loop is idle and they are measured,
/// a few milliseconds at a time. All heights are whole pixels.
///
/// The lines wrap at the width of the document's page, or nowhere if it has none.
class RichLayout : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    explicit RichLayout(QTextDocument *document);

    /// Display line, from 0, of a position in the document; measures what lies above.
    int lineOfPosition(int position);
    /// Where the display line that holds a position in the document begins.
    int lineStart(int position);

    void draw(QPainter *painter, const PaintContext &context) override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame *frame) const override;
    QRectF blockBoundingRect(const QTextBlock &block) const override;

signals:
    /// The height of paragraphs above `bottom` (in pixels from the document's top, as
    /// it was) turned out to be `difference` more than estimated.
    void heightFound(qreal bottom, qreal difference) const;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    struct Size {
        int height = 0; // pixels
        int lines = 1;
        bool exact = false;
    };

    bool wraps() const;
    qreal textWidth() const;
    /// Lays a paragraph out, if that isn't done, and notes its size.
    void layOut(const QTextBlock &block) const;
    void note(const QTextBlock &block, Size size) const;
    Size estimated(const QTextBlock &block) const;
    int heightOfFormat(const QTextBlock &block, int index, const QTextCharFormat &format) const;
    /// The top of a paragraph by its number; that of one behind the last is the foot.
    qint64 top(int number) const;
    QTextBlock blockAt(qreal y) const;
    void measureSome();
    void reportSize();
    void drawBlock(QPainter *painter, const PaintContext &context, const QTextBlock &block) const;

    mutable std::vector<Size> m_sizes; // by paragraph
    /// Sums of the heights in front of each paragraph, right up to m_summed.
    mutable std::vector<qint64> m_tops;
    mutable std::size_t m_summed = 0;
    mutable qint64 m_height = 0; // of all paragraphs
    mutable qreal m_widest = 0;  // line seen, if they don't wrap
    mutable std::unordered_map<int, int> m_formatHeights;
    mutable std::unordered_map<int, qreal> m_formatWidths; // of an average character
    int m_measured = 0;                                    // every paragraph in front of this one is exact
    QTimer m_idle;
    QSizeF m_reported;
};

} // namespace zolt
