#pragma once

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextOption>
#include <QTimer>
#include <unordered_map>
#include <vector>

namespace zolt {

/// The layout of a rich text's document: paragraphs below each other, without frames
/// and tables. Qt's own one moves every paragraph behind a change; this one keeps
/// sizes alone and adds them up where they are asked for, so that a key costs as
/// little at a long text's start as at its end.
///
/// A paragraph is laid out when it shows or is asked for. The others have a size
/// estimated from their formats, until the event loop is idle and they are measured,
/// a few milliseconds at a time. All heights are whole pixels.
///
/// The lines wrap at the width of the document's page, unless the document's text option
/// says that nothing wraps.
class RichLayout : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    explicit RichLayout(QTextDocument *document);

    /// Display line, from 0, of a position in the document; measures what lies above.
    int lineOfPosition(int position);
    /// Where the display line that holds a position in the document begins.
    int lineStart(int position);

    /// `option` as a paragraph's lines are filled by it.
    static QTextOption lineOption(const QTextBlock &block, QTextOption option);
    /// Measures nothing more until the document changes: nobody will look at it.
    void rest() { m_idle.stop(); }

    /// A height in the document, in pixels from the first line's top, as the paragraph
    /// that stands there and what of it lies above: right also when others have been
    /// measured.
    struct Place {
        int paragraph = 0; // from 0
        int above = 0;     // pixels
    };
    Place placeAt(int height) const;
    int heightOf(Place place) const;
    /// Where the display line that holds a position in the document is.
    Place placeOfLine(int position) const;
    /// Lays out what shows below a place in a view of that height, in pixels. A view calls
    /// it before it paints, since nothing may move while it does.
    void layOutView(Place top, int height);

    void draw(QPainter *painter, const PaintContext &context) override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame *frame) const override;
    QRectF blockBoundingRect(const QTextBlock &block) const override;

signals:
    /// Around any correction of estimated sizes, but for those while a window is painted
    /// or the document changes: the paragraphs from `first` to `last` turned out
    /// different, and the document's size has been reported.
    void aboutToMeasure() const;
    void measured(int first, int last) const;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    struct Size {
        int height = 0; // pixels
        int width = 0;  // of the longest line
        int lines = 1;
        bool exact = false;
    };
    /// What lies in front of a paragraph.
    struct Sum {
        qint64 height = 0;
        int lines = 0;
    };
    /// Of one character.
    struct CharacterSize {
        int height = 0;
        qreal width = 0;
    };
    /// On what all sizes rest.
    struct Basis {
        qreal width = 0;
        qreal tabStop = 0;
        QTextOption::WrapMode wrapMode = QTextOption::NoWrap;

        bool operator==(const Basis &) const = default;
    };
    class Measuring;

    bool wraps() const;
    qreal textWidth() const;
    Basis basis() const;
    /// Lays a paragraph out, if that isn't done, and notes its size.
    void layOut(const QTextBlock &block) const;
    void note(int number, Size size) const;
    void setSize(int number, Size size) const;
    void measure(int number);
    Size estimated(const QTextBlock &block) const;
    /// Of a paragraph without characters or a fragment.
    template <class Part> CharacterSize characterSize(const Part &part) const;
    /// Of a paragraph by its number; one behind the last gives all.
    const Sum &inFrontOf(int number) const;
    int widest() const;
    QTextBlock blockAt(qint64 height) const;
    void replaceSizes(int first, int last);
    void measureSome();
    void reportSize();
    void drawBlock(QPainter *painter, const PaintContext &context, const QTextBlock &block) const;

    Basis m_basis;
    mutable std::vector<Size> m_sizes; // by paragraph
    mutable std::vector<Sum> m_sums;   // one more than paragraphs, right up to m_summed
    mutable int m_summed = 0;
    mutable qint64 m_height = 0;                                     // of all paragraphs
    mutable int m_widest = 0;                                        // of all paragraphs, or more
    mutable bool m_widestIsRight = true;                             // not more
    mutable std::unordered_map<int, CharacterSize> m_characterSizes; // by format
    int m_measured = 0; // every paragraph in front of this one is exact
    QTimer m_idle;
    QSizeF m_reported;

    mutable bool m_quiet = false; // while it paints or follows a change
    mutable int m_measurings = 0; // under way
    mutable int m_firstFound = 0; // in those
    mutable int m_lastFound = -1;
};

} // namespace zolt
