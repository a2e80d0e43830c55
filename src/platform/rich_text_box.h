#pragma once

#include "core/progress.h"
#include "graphic/rich_text.h"

#include <QByteArray>
#include <QTextEdit>
#include <string>
#include <string_view>
#include <utility>

class QImage;

namespace zolt {

class RichTextDocument;

/// The rich text control of the windows. Its text is bytes, as in TextPane: a line
/// end is CR LF and counts as two characters, a picture as one, soft wrap adds
/// nothing. Offsets count from 0; one outside the text is taken as the nearest
/// inside, one between CR and LF as the one before the pair, and a selection that
/// ends there takes in the whole line end.
///
/// Set read-only it is locked: keys move the caret, which stays visible, and nothing
/// types. The program's own setters work all the same.
///
/// The clipboard gets RTF and plain text. Pasted or dropped are RTF, else a picture,
/// else text; files are refused.
class RichTextBox : public QTextEdit {
    Q_OBJECT
    Q_PROPERTY(QByteArray Text READ textProperty WRITE setTextProperty NOTIFY Change)
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
    /// Replaces all and clears the undo history; the caret goes to 0. False, with
    /// nothing changed, when `progress` asks to stop; it is told the paragraphs done.
    bool setRichText(const RichText &text, const Progress &progress = {});
    RichText selRichText() const;
    /// Replaces the selection in one undo step; the caret stands behind the new text.
    void setSelRichText(const RichText &text);

    /// The same as RTF; a source that isn't RTF is taken as plain text.
    std::string TextRTF() const;
    void setTextRTF(std::string_view rtf);
    std::string SelRTF() const;
    void setSelRTF(std::string_view rtf);

    /// The characters alone; a picture gives a blank.
    std::string Text() const;
    /// Replaces all by characters in the format that stood at the text's start.
    void setText(std::string_view bytes);
    qsizetype length() const;

    qsizetype SelStart() const;
    void setSelStart(qsizetype offset);
    qsizetype SelLength() const;
    void setSelLength(qsizetype length);
    qsizetype selEnd() const;
    std::string SelText() const;
    /// The new characters take the format of the selection's first one.
    void setSelText(std::string_view bytes);

    /// The format of the selection, with no selection that of what is typed next. A
    /// name or size that differs within the selection reads as "" or 0, an attribute
    /// as false, a colour as that of the first character.
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

    /// Both take a path as file system bytes and give the reason of a failure, else
    /// an empty text. A file that can't be read, or is neither RTF nor plain text,
    /// changes nothing.
    std::string LoadFile(const std::string &path);
    std::string SaveFile(const std::string &path) const;

    /// Replaces the selection by a picture, 15 twips a pixel.
    void pastePicture(const QImage &image);

    /// Display line, from 0, of an offset, soft-wrapped lines counted.
    int lineOfOffset(qsizetype offset) const;
    int lineCount() const;

    /// Text of the system's colour, kWindowText, is drawn so that it can be read on it.
    void setBackColour(const QColor &colour);
    /// Whether the ground shines through the white of pictures, as on the calculator.
    void setWhiteIsClear(bool on);

public slots:
    void undo();
    void redo();

signals:
    // Reported as they happen, after the control has acted on them: the text is laid
    // out and the caret stands where it shall.
    void Change();
    void keyDown();
    void keyUp();
    void mouseDown(Qt::MouseButton button);
    void mouseUp(Qt::MouseButton button);
    /// A press and a release of the left button in the control.
    void click();

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    QByteArray textProperty() const { return QByteArray::fromStdString(Text()); }
    void setTextProperty(const QByteArray &bytes) { setText({bytes.constData(), std::size_t(bytes.size())}); }
    QByteArray textRtfProperty() const { return QByteArray::fromStdString(TextRTF()); }
    void setTextRtfProperty(const QByteArray &rtf) { setTextRTF({rtf.constData(), std::size_t(rtf.size())}); }
    QByteArray selTextProperty() const { return QByteArray::fromStdString(SelText()); }
    void setSelTextProperty(const QByteArray &bytes) {
        setSelText({bytes.constData(), std::size_t(bytes.size())});
    }
    int selStartProperty() const { return static_cast<int>(SelStart()); }
    void setSelStartProperty(int offset) { setSelStart(offset); }
    int selLengthProperty() const { return static_cast<int>(SelLength()); }
    void setSelLengthProperty(int length) { setSelLength(length); }

    /// While one stands no Change is reported; the last one's end reports one for all.
    class HeldChange {
    public:
        explicit HeldChange(RichTextBox &box) : m_box(box) { ++m_box.m_holds; }
        ~HeldChange() {
            if (--m_box.m_holds == 0 && std::exchange(m_box.m_changed, false))
                emit m_box.Change();
        }
        HeldChange(const HeldChange &) = delete;
        HeldChange &operator=(const HeldChange &) = delete;

    private:
        RichTextBox &m_box;
    };

    void reportChange();
    void take(RichTextDocument *document);
    /// Behind inserted text. Text that is dropped comes within an edit of Qt's, which
    /// has no lines to look for the caret in and places it itself.
    void placeCaret(int position);
    void select(int anchor, int caret);
    /// The format of the first selected character, else of what is typed next.
    QTextCharFormat firstFormat() const;
    /// Calls `visit` with each format of the selection until it answers false.
    template <class Visitor> void visitFormats(Visitor visit) const;
    /// The value that all of the selection has, else `mixed`.
    template <class Value, class Getter> Value common(Getter get, Value mixed) const;

    RichTextDocument *m_document = nullptr;
    bool m_whiteIsClear = false;
    bool m_takesDrop = false;
    int m_holds = 0;
    bool m_changed = false; // while Change is held
};

} // namespace zolt
