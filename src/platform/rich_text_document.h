#pragma once

#include "core/progress.h"
#include "graphic/font_characters.h"
#include "graphic/rich_text.h"

#include <QCache>
#include <QImage>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextObjectInterface>
#include <memory>
#include <string_view>
#include <vector>

class QTextBlock;
class QTextCursor;

namespace zolt {

class RichLayout;

/// A rich text as a Qt document. Characters are those of rich_text_characters.h, a
/// picture is one object character. Twips become pixels, 15 to the pixel, and a
/// picture stands on whole pixels, enlarged without smoothing, on the foot of its
/// line.
class RichTextDocument : public QTextDocument, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// The document of a rich text, without an undo history; nothing when
    /// `progress`, which is told the paragraphs done, asks to stop.
    static std::unique_ptr<RichTextDocument> make(const RichText &text, const Progress &progress = {});

    /// The rich text between two positions, in a form equal to what was put in:
    /// fonts in the order of their first use, neighbours of one format joined.
    RichText richText(int from, int to) const;
    RichText richText() const { return richText(0, characterCount() - 1); }

    /// Puts byte 9 between two positions into the form of the fonts that it stands in
    /// by now.
    void reformTabs(int from, int to);
    /// Replaces stretches of `length` bytes at rising offsets, each by bytes that look like
    /// its first character, in one undo step.
    void replaceEach(const std::vector<std::size_t> &offsets, std::size_t length, std::string_view bytes);
    /// Makes an empty first line look like the text's first character. Qt keeps that
    /// line's format apart from the text and from the undo history.
    void settleFirstLine();
    /// The same for the only line of an empty text.
    void setEmptyFormat(const QTextCharFormat &format);

    /// The picture that is all there is between two positions, else none.
    QImage pictureBetween(int from, int to);

    /// Draws pictures as on the calculator's glass: what is white lets the ground shine
    /// through. The pictures themselves stay as they are.
    void setWhiteIsClear(bool on) { m_whiteIsClear = on; }

    /// The lines are laid out by somebody else, in twips: for a device with a dot a twip.
    /// It outlives the document. A picture larger than `room` is made smaller in its
    /// proportions.
    void setPaper(QPaintDevice &device, QSize room);

    /// Replaces the cursor's selection in one undo step.
    void insert(QTextCursor &cursor, const RichText &text);
    void insert(QTextCursor &cursor, const RichPicture &picture, const QTextCharFormat &format);

    RichLayout &layout() const { return *m_layout; }

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &place, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    /// Other characters for a part of the text.
    struct Edit {
        int from; // position
        int to;
        QString characters;
        QTextCharFormat format;
    };

    RichTextDocument();
    std::vector<Edit> editsOf(const std::vector<std::size_t> &offsets, std::size_t length,
                              std::string_view bytes) const;
    /// In one undo step; the edits rise.
    void edit(const std::vector<Edit> &edits);
    bool append(QTextCursor &cursor, const RichText &text, const Progress &progress);
    QTextCharFormat pictureFormat(const RichPicture &picture, QTextCharFormat format);
    const RichPicture *pictureOf(const QTextFormat &format) const;
    /// The size of a picture, in pixels of the layout.
    QSize sizeOf(const RichPicture &picture) const;
    const QImage &image(int number);
    qreal depthBelowBaseline(int position, const QTextFormat &format) const;

    RichLayout *m_layout; // the document's
    /// Pictures stay until the document goes, since an undo may bring them back.
    std::vector<RichPicture> m_pictures;
    bool m_whiteIsClear = false;
    int m_twipsAPixel;
    QSize m_room; // for a picture; an invalid one is endless
    /// Decoded pictures by number; the cost is in kilobytes.
    QCache<int, QImage> m_images;
};

/// The format of the line end behind a block: Qt keeps it with the block that it begins.
QTextCharFormat lineEndFormat(const QTextBlock &block);
/// A format without what makes its character a picture.
QTextCharFormat textFormat(QTextCharFormat format);

/// Character formats in Qt's form. The font of the calculator stands behind the
/// named one, for characters that the named one lacks.
QTextCharFormat qtFormat(const CharFormat &format, const std::string &font);
/// Only one property, for a merge into other formats.
QTextCharFormat qtFontName(const std::string &font);
QTextCharFormat qtFontSize(double points);
QTextCharFormat qtTextColour(Colour colour);

std::string fontNameOf(const QTextCharFormat &format);
FontKind fontKindOf(const QTextCharFormat &format);
double fontSizeOf(const QTextCharFormat &format);
Colour textColourOf(const QTextCharFormat &format);
/// All but the font's index.
CharFormat charFormatOf(const QTextCharFormat &format);

} // namespace zolt
