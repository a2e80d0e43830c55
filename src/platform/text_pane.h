#pragma once

#include "core/progress.h"
#include "platform/pane_control.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QTextLine;
class QTimer;

namespace zolt {

class PaneLayout;
struct PaneShows;

/// The plain text box of the windows. Pasted and dropped characters become bytes as typed
/// ones do; any line end from outside gives CR LF. Files, dropped or pasted, are not taken.
///
/// A key costs the same in a long document as in a short one: lineOfOffset doesn't read
/// the text either.
class TextPane : public PaneControl<QPlainTextEdit> {
    Q_OBJECT
    Q_PROPERTY(QByteArray Text READ textProperty WRITE setTextProperty)
    Q_PROPERTY(QByteArray SelText READ selTextProperty WRITE setSelTextProperty)
    Q_PROPERTY(int SelStart READ selStartProperty WRITE setSelStartProperty)
    Q_PROPERTY(int SelLength READ selLengthProperty WRITE setSelLengthProperty)

public:
    /// A pane that wraps has a vertical scroll bar only, and breaks its lines at
    /// words, longer words anywhere. One that doesn't has both scroll bars.
    explicit TextPane(bool wraps, QWidget *parent = nullptr);

    /// Replaces all and clears the undo history; the caret goes to 0. A long text is put in
    /// bit by bit while the windows live, and at once what somebody asks for; `progress`,
    /// which can't stop it, is told the bytes that are in.
    void setText(std::string_view bytes, const Progress &progress = {});
    /// The same for a hidden pane, which holds the bytes alone until it is read or shown.
    void setTextLater(std::string bytes, qsizetype selStart = 0, qsizetype selLength = 0);
    /// The text in the form in which the control holds it, of which bytesOfHeldText() makes
    /// the bytes: a copy, far cheaper than Text().
    QString held() const;
    /// Replaces all in one undo step; the caret goes to 0. Only the stretch that
    /// differs is edited.
    void replaceText(std::string_view bytes);
    void setSelText(std::string_view bytes) override;
    void replaceEach(const std::vector<std::size_t> &offsets, std::size_t length,
                     std::string_view replacement) override;

    int lineOfOffset(qsizetype offset) const override;
    int displayLineCount() const;
    qsizetype lineStartOfCaret() const override;

    /// The bytes of the caret's display line in front of the caret and behind it; costs
    /// what that line is long.
    std::pair<std::string, std::string> caretLine() const;

    /// The font of the whole pane. What it lacks, such as marks for control
    /// characters, is taken from the font ZOLT.
    void setPaneFont(const QFont &font);
    void setColours(const QColor &text, const QColor &background);
    /// What shows beside the characters, nothing at first. It moves none of them to another
    /// display line.
    void setShows(const PaneShows &shows);

protected:
    std::string bytesOf(QStringView characters) const override;
    QString characters(std::string_view bytes) const override;
    void moveSelection(int place) override;
    void noteContents(int from, int end) override;
    void finishChange() override;

    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void setTextProperty(const QByteArray &bytes) { setText(viewOf(bytes)); }

    /// The display line that holds a position, always a valid one.
    QTextLine lineOfBlock(const QTextBlock &block, int position) const;
    int lineOfPosition(int position) const;

    /// Gives what is in a part of the view its look, and draws what stands beneath the text.
    void drawBeneath(const QRect &part);
    /// Draws text, selection and caret in a part of the view.
    void drawText(const QRect &part);
    void drawLine(const QTextBlock &block, QPointF place, const QRect &part);
    void followCaret();

    /// Puts in the next stretch of a text, or all that is left of it.
    void putStretch();
    void putRest();
    /// All of it is in, or another one comes.
    void endText();
    /// One undo step; the caret goes behind the new bytes if no place is given.
    void replaceRange(int from, int to, std::string_view bytes, std::optional<int> caret);
    /// Makes line ends of the lone CRs at the positions and the lone LFs that a
    /// change brought behind them.
    void joinLineEnds(const std::vector<int> &positions);

    /// What isn't in yet of a long text.
    struct Rest {
        std::string text; // all of it
        std::size_t begin;
        Progress progress;
    };
    std::optional<Rest> m_rest;
    QTimer *m_restTimer; // goes while there is a rest

    PaneLayout *m_layout;             // the document's
    bool m_showsCells = false;        // the view has picture cells
    std::vector<int> m_splitLineEnds; // positions of such CRs in the change under way
};

} // namespace zolt
