#pragma once

#include "graphic/rich_text.h"
#include "shell/document/graphic/edit_graph_fullscreen_frm.h"
#include "shell/document/text/edit_text_fullscreen_frm.h"
#include "support/opened_files.h"
#include "support/program.h"

#include <deque>
#include <random>
#include <string>

class QFileDialog;
class QTextDocument;

namespace zolt::test {

/// A longer document makes the walk slow and finds nothing more, in bytes.
constexpr qsizetype kLongDocument = 6000;

/// A document, by all that its file holds.
struct Contents {
    std::string text;
    RichText rich;
    bool operator==(const Contents &) const = default;
};

/// A user without a plan: random keys, commands, drops and clicks in every window that stands,
/// random answers to every question, windows closed while something runs. Now and then he
/// does with a document what must leave it as it is.
class RandomWalk : public ProgramTest {
protected:
    RandomWalk();
    ~RandomWalk() override;
    void walk(unsigned seed, unsigned steps);

private:
    unsigned random(std::size_t below) { return static_cast<unsigned>(m_random() % below); }
    bool once(unsigned in) { return random(in) == 0; }
    template <class List> auto oneOf(const List &list) {
        return list[static_cast<decltype(list.size())>(random(list.size()))];
    }
    void note(const std::string &step);
    std::string trace() const { return testing::PrintToString(m_trace); }

    // Answers to what comes up while a step is under way.
    void watch();
    void answer();
    void answer(QWidget *dialog);
    void answer(QFileDialog &dialog);
    void disturb();

    // The steps.
    void begin();
    void step();
    void type();
    void typeCharacter(QWidget &target, QChar character);
    void callSlot();
    void triggerAction();
    void useWindow();
    void useControl(QWidget &control);
    void closeWindow();
    void drop();
    void fillClipboard();
    void useDocument();
    void undoAndRedoAll();
    void saveAndOpen();
    void wrapAndUnwrap();
    void enterAndLeaveFullScreen();
    void cutAndPaste();
    void keep();

    // What they act on.
    static DocumentFrm *document() {
        return documentInUse() ? qobject_cast<DocumentFrm *>(&documentInUse()->window()) : nullptr;
    }
    static QWidget *fullScreen() {
        QWidget *text = loaded<EditTextFullscreenFrm>();
        QWidget *window = text ? text : loaded<EditGraphFullscreenFrm>();
        return window && window->isVisible() ? window : nullptr;
    }
    static QList<QWidget *> windows();
    static bool isAtHand(const MDIFrm *frame) { return frame && frame->isVisible() && frame->isEnabled(); }
    QByteArray someText();
    Pane &pane() { return document()->activePane(); }

    // What must hold.
    void check();
    void checkDocument(DocumentFrm &document);
    static Contents contents(Pane &pane);
    Contents contents() { return contents(pane()); }
    static QTextDocument *historyOf(Pane &pane);

    std::mt19937 m_random;
    std::deque<std::string> m_trace;
    OpenedFiles m_opened;
    bool m_stepping = false; // dialogs are answered
    bool m_starting = false; // and nothing comes in between
    QString m_forcedPath;    // which the next file dialogs get
    bool m_traces = qEnvironmentVariableIsSet("ZOLT_WALK_TRACE");
};

} // namespace zolt::test
