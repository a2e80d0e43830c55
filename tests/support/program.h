#pragma once

#include "platform/text_pane.h"
#include "shell/base/shared_values.h"
#include "shell/base/windows.h"
#include "shell/document/text/edit_text_frm.h"
#include "shell/frame/mdi_frm.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace zolt::test {

/// The program in this process, with a folder of its own for its files and for what
/// the user's desktop keeps; it ends without questions when the test does.
class ProgramTest : public testing::Test {
protected:
    ProgramTest();
    ~ProgramTest() override;

    MDIFrm &start(const std::string &commandLine = {});
    /// Starts with a new document of an edition, 1 textual or 2 graphical.
    DocumentFrm &startEdition(int number);
    EditTextFrm &startTextEdition();
    /// Ends the program as a user who has nothing to save.
    void leave();

    /// A path in the test's own folder.
    std::string path(const std::string &name) const;
    std::string fileBytes(const std::string &name) const;
    void writeBytes(const std::string &name, std::string_view bytes) const;

    QTemporaryDir m_folder;
};

/// The program with an empty document of the text edition.
class TextEditionTest : public ProgramTest {
protected:
    TextEditionTest() : m_window(&startTextEdition()) {}

    TextPane &pane() { return m_window->activeTextPane(); }
    void restart();

    EditTextFrm *m_window;
};

/// The program with a new document of one edition: of each in a TEST_P.
class EditionTest : public ProgramTest {
protected:
    explicit EditionTest(int number) : m_document(&startEdition(number)), m_number(number) {}

    void restart();

    Pane &pane() { return m_document->activePane(); }
    /// Makes the document this text and selects a part of it.
    void put(std::string_view text, qsizetype start = 0, qsizetype length = 0);

    DocumentFrm *m_document;

private:
    int m_number;
};

/// Arranges that the next message box is answered, and keeps its text.
class Answer {
public:
    explicit Answer(QMessageBox::StandardButton button);
    ~Answer();
    bool came() const;
    QString text() const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

/// Arranges that the next file dialog gets a path typed and is accepted, or is
/// cancelled for an empty path. The file type that begins so is chosen before.
void answerFileDialog(const std::string &path, const char *fileType = "");

/// Runs `act` once a modal window of this class stands, then goes on.
void whenModal(const char *className, std::function<void(QWidget *)> act);

/// Lets the event loop run until `condition` holds; false after `milliseconds`.
bool waitFor(const std::function<bool()> &condition, int milliseconds = 5000);

/// The control of a window by name.
template <class Control> Control *control(QWidget *window, const char *name) {
    auto *found = window->findChild<Control *>(QString::fromUtf8(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

/// Clicks a button of a window.
void press(QWidget *window, const char *button);

/// What panel 1 of the document's status bar says, whole also where it has no room for it.
QString statusMessage();

/// Deletes the windows that are closed and wanted by nobody, as the event loop does.
void deleteClosed();

/// Calls a window's operation by its name, as a menu item does.
void call(QObject *window, const char *operation);

} // namespace zolt::test
