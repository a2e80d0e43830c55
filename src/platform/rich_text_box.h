#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"
#include "platform/pane_control.h"
#include "platform/rich_layout.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QImage;

namespace zolt {

class RichTextDocument;

/// The rich text control of the windows. A picture is one character, and a selection that
/// ends between CR and LF takes in the whole line end.
///
/// The clipboard gets RTF and plain text, and a picture that is alone in the selection.
/// Pasted or dropped are RTF, else a picture, else text; files and HTML are refused.
class RichTextBox : public PaneControl<QTextEdit> {
    Q_OBJECT
    Q_PROPERTY(QByteArray Text READ textProperty WRITE setTextProperty)
    Q_PROPERTY(QByteArray TextRTF READ textRtfProperty WRITE setTextRtfProperty)
    Q_PROPERTY(QByteArray SelText READ selTextProperty WRITE setSelTextProperty)
    Q_PROPERTY(int SelStart READ selStartProperty WRITE setSelStartProperty)
    Q_PROPERTY(int SelLength READ selLengthProperty WRITE setSelLengthProperty)

public:
    /// A box that wraps breaks its lines at words, longer words anywhere, and has a
    /// vertical scroll bar only. One that doesn't has both.
    explicit RichTextBox(bool wraps = true, QWidget *parent = nullptr);
    ~RichTextBox() override;

    RichText richText() const;
    /// The rich text of a stretch, in positions from 0 of which each character and each
    /// line end is one; `to` may lie behind the text. Stretches that follow each other give
    /// the whole text, put together by a RichTextBuilder.
    RichText richText(int from, int to) const;
    int positionCount() const;
    /// Replaces all and clears the undo history; the caret goes to 0. False, with
    /// nothing changed, when `progress` asks to stop; it is told the paragraphs done.
    bool setRichText(const RichText &text, const Progress &progress = {});
    /// The same for a hidden box, which holds the rich text alone until it is read or shown.
    void setRichTextLater(RichText text, qsizetype selStart = 0, qsizetype selLength = 0);
    RichText selRichText() const;
    /// Replaces the selection in one undo step; the caret stands behind the new text.
    void setSelRichText(const RichText &text);
    /// Replaces all in one undo step; the caret goes to 0. Only the paragraphs that differ
    /// are edited.
    void replaceRichText(const RichText &text);

    /// The same as RTF; a source that isn't RTF is taken as plain text.
    std::string TextRTF() const;
    void setTextRTF(std::string_view rtf);
    std::string SelRTF() const;
    void setSelRTF(std::string_view rtf);

    /// Replaces all by characters in the format that stood at the text's start; clears the
    /// undo history.
    void setText(std::string_view bytes);
    void setSelText(std::string_view bytes) override;
    void replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                     std::string_view replacement) override;

    /// The format of the selection, with no selection that of what is typed next. A
    /// name or size that differs within the selection reads as "" or 0, an attribute
    /// as false, a colour as that of the first character. Setting is one undo step.
    std::string SelFontName() const;
    double SelFontSize() const;
    Colour SelColor() const;
    bool SelBold() const;
    bool SelItalic() const;
    bool SelUnderline() const;
    bool SelStrikeThru() const;
    void setSelFontName(const std::string &name);
    void setSelFontSize(double points);
    void setSelColor(Colour colour);
    void setSelBold(bool on);
    void setSelItalic(bool on);
    void setSelUnderline(bool on);
    void setSelStrikeThru(bool on);
    /// Whether all characters of a stretch are in this font; line ends count as in any.
    bool hasFont(std::string_view name, qsizetype offset, qsizetype length) const;

    /// The whole text's and that of what is typed next; the selection stays. One undo step.
    void setFontSize(double points);
    void setTextColour(Colour colour);
    /// The same, and neither bold nor italic, underlined nor struck through; text in a
    /// foreign font gets the plain font.
    void setPlainLook(double points, Colour colour);

    /// Both take a path as file system bytes and give the reason of a failure, else
    /// an empty text. A file that can't be read, or is neither RTF nor plain text,
    /// changes nothing.
    std::string LoadFile(const std::string &path);
    std::string SaveFile(const std::string &path) const;

    /// Replaces the selection by a picture, 15 twips a pixel.
    void pastePicture(const QImage &image);

    /// Offset of the start of the paragraph that holds an offset.
    qsizetype paragraphStart(qsizetype offset) const;
    int lineOfOffset(qsizetype offset) const override;
    int lineCount() const;
    qsizetype lineStartOfCaret() const override;

    /// Text of the system's colour, kWindowText, is drawn so that it can be read on it.
    void setBackColour(const QColor &colour);
    /// Whether the ground shines through the white of pictures, as on the calculator.
    void setWhiteIsClear(bool on);

protected:
    std::string bytesOf(QStringView characters) const override;
    QString characters(std::string_view bytes) const override;
    int positionOfSelectionEnd(qsizetype offset) const override;
    void takeKey(QKeyEvent &key) override;
    void moveSelection(int place) override;
    void finishChange() override;

    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void setTextProperty(const QByteArray &bytes) { setText(viewOf(bytes)); }
    QByteArray textRtfProperty() const { return QByteArray::fromStdString(TextRTF()); }
    void setTextRtfProperty(const QByteArray &rtf) { setTextRTF(viewOf(rtf)); }

    void take(RichTextDocument *document);
    /// While sizes are corrected what shows stays where it is.
    void holdView();
    void releaseView(int firstParagraph, int lastParagraph);
    /// Replaces the selection in one undo step; the caret stands behind what is inserted.
    template <class Insertion> void replaceSelection(Insertion insert);
    void mergeFormat(const QTextCharFormat &format);
    void mergeIntoAll(const QTextCharFormat &format);
    std::vector<std::pair<int, int>> stretchesInForeignFonts() const;
    /// The format of the first selected character, else of what is typed next.
    QTextCharFormat firstFormat() const;
    /// Calls `visit` with each format between two positions until it answers false, and
    /// gives its last answer. Line ends are left out.
    template <class Visitor> bool eachFormat(int from, int to, Visitor visit) const;
    /// The value that all of the selection has, else `mixed`.
    template <class Value, class Getter> Value common(Getter get, Value mixed) const;

    RichTextDocument *m_document = nullptr;
    bool m_whiteIsClear = false;
    /// The view while sizes are corrected: what stands at its top, and whether the program
    /// has let it scroll behind the text's end.
    struct HeldView {
        RichLayout::Place top;
        int left = 0;
        bool hasRoom = false;
    };
    std::optional<HeldView> m_heldView;
};

} // namespace zolt
