#include "support/program.h"

#include "core/file.h"
#include "shell/base/document_in_use.h"
#include "shell/start/start_up.h"
#include "shell/tools/question_frm.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTimer>

namespace zolt::test {

namespace {

const QString kPoll = QStringLiteral("poll for a modal window");

QTimer *newPoll() {
    auto *poll = new QTimer(qApp);
    poll->setObjectName(kPoll);
    poll->start(1);
    return poll;
}

} // namespace

ProgramTest::ProgramTest() {
    qputenv("ZOLT_HOME", m_folder.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", path("data").c_str());
    qputenv("XDG_CONFIG_HOME", path("config").c_str());
    qputenv("XDG_STATE_HOME", m_folder.path().toLocal8Bit() + "/state");
}

ProgramTest::~ProgramTest() {
    leave();
    // An answer that was never asked for must not meet the next test's dialog.
    qDeleteAll(qApp->findChildren<QTimer *>(kPoll, Qt::FindDirectChildrenOnly));
}

MDIFrm &ProgramTest::start(const std::string &commandLine) {
    return startProgram(commandLine);
}

DocumentFrm &ProgramTest::startEdition(int number) {
    start();
    if (QuestionFrm *chooser = loaded<QuestionFrm>()) {
        const QString picture = QStringLiteral("Picture%1").arg(number);
        QTest::mouseClick(control<QWidget>(chooser, qPrintable(picture)), Qt::LeftButton);
        press(chooser, "Command1");
    }
    deleteClosed();
    EXPECT_TRUE(QTest::qWaitForWindowActive(loaded<MDIFrm>()));
    return *qobject_cast<DocumentFrm *>(&documentInUse()->window());
}

EditTextFrm &ProgramTest::startTextEdition() {
    return *qobject_cast<EditTextFrm *>(&startEdition(1));
}

void ProgramTest::leave() {
    shared::SemPerguntaDeSaída = 1;
    if (MDIFrm *frame = loaded<MDIFrm>()) {
        frame->setEnabled(true);
        frame->close();
    }
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible())
            window->close();
    deleteClosed();
    shared::SemPerguntaDeSaída = 0;
}

void TextEditionTest::restart() {
    leave();
    m_window = &startTextEdition();
}

void EditionTest::restart() {
    leave();
    m_document = &startEdition(m_number);
}

void EditionTest::put(std::string_view text, qsizetype start, qsizetype length) {
    pane().setSelStart(0);
    pane().setSelLength(pane().length());
    pane().setSelText(text);
    pane().setSelStart(start);
    pane().setSelLength(length);
}

std::string ProgramTest::path(const std::string &name) const {
    return m_folder.path().toStdString() + "/" + name;
}

std::string ProgramTest::fileBytes(const std::string &name) const {
    return readFile(path(name)).bytes;
}

void ProgramTest::writeBytes(const std::string &name, std::string_view bytes) const {
    ASSERT_EQ(writeFile(path(name), bytes), "");
}

struct Answer::State {
    QMessageBox::StandardButton button;
    bool came = false;
    bool over = false;
    QString text;
};

Answer::Answer(QMessageBox::StandardButton button) : m_state(std::make_shared<State>()) {
    m_state->button = button;
    QTimer *poll = newPoll();
    QObject::connect(poll, &QTimer::timeout, poll, [poll, state = m_state] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (state->over)
            poll->deleteLater();
        else if (box && box->isVisible()) {
            state->over = state->came = true;
            state->text = box->text();
            QTest::mouseClick(box->button(state->button), Qt::LeftButton);
        }
    });
}

Answer::~Answer() {
    m_state->over = true;
}
bool Answer::came() const {
    return m_state->came;
}
QString Answer::text() const {
    return m_state->text;
}

void whenModal(const char *className, std::function<void(QWidget *)> act) {
    QTimer *poll = newPoll();
    QObject::connect(poll, &QTimer::timeout, poll, [poll, className, act = std::move(act)] {
        QWidget *window = QApplication::activeModalWidget();
        if (window && window->isVisible() && window->inherits(className)) {
            poll->deleteLater();
            poll->stop();
            act(window);
        }
    });
}

void answerFileDialog(const std::string &path, const char *fileType) {
    whenModal("QFileDialog", [path, fileType](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        ASSERT_NE(dialog, nullptr);
        if (path.empty())
            return dialog->reject();
        auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        QTest::keyClicks(dialog->findChild<QComboBox *>(QStringLiteral("fileTypeCombo")),
                         QString::fromUtf8(fileType));
        dialog->selectFile(QString::fromStdString(path));
        name->setText(QString::fromStdString(path));
        // The dialog's own button waits for its list of the folder to be read.
        QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
    });
}

bool waitFor(const std::function<bool()> &condition, int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void press(QWidget *window, const char *button) {
    QTest::mouseClick(control<QPushButton>(window, button), Qt::LeftButton);
}

QString statusMessage() {
    const auto *panel = control<QLabel>(&documentInUse()->window(), "Panel1");
    // On a small screen the panel shows the end, and its tool tip the whole.
    return panel->text().startsWith(QChar(0x2026))
               ? QTextDocumentFragment::fromHtml(panel->toolTip()).toPlainText()
               : panel->text();
}

void deleteClosed() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void call(QObject *window, const char *operation) {
    EXPECT_TRUE(QMetaObject::invokeMethod(window, operation, Qt::DirectConnection)) << operation;
}

} // namespace zolt::test
