#include "platform/shown.h"
#include "shell/document/graphic/edit_graph_frm.h"
#include "shell/random_walk.h"
#include "shell/tools/recover_frm.h"
#include "support/texts.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>

#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMetaMethod>
#include <QMimeData>
#include <QPrintDialog>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>

namespace zolt::test {

namespace {

constexpr std::size_t kLastSteps = 40;
constexpr const char *kWebSchemes[] = {"http", "https", "mailto"};

/// The public operations of a window, of its own class and of those of this program
/// below it.
QList<QByteArray> operationsOf(const QObject &window) {
    // The half of a closing; what takes a program's own values; the wait for a compilation.
    static const std::set<QByteArray> leftOut{"OperaçõesDeSaída", "MostrarMensagemFrm", "MostrarWaitFrm"};
    QList<QByteArray> names;
    const QMetaObject &meta = *window.metaObject();
    for (int i = 0; i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == QMetaMethod::Slot && method.access() == QMetaMethod::Public &&
            method.parameterCount() == 0 && !leftOut.contains(method.name()) &&
            QByteArray(method.enclosingMetaObject()->className()).startsWith("zolt::"))
            names << method.name();
    }
    return names;
}

/// Whether a user comes to an operation of the frame while this document is in use.
bool serves(const QByteArray &operation, const DocumentFrm *document) {
    // Of the menu that the frame shows while there is no document.
    static const std::set<QByteArray> own{"MostrarQuestionFrm", "MnuFicheiroNovo",
                                          "MnuVerBarradeferramentas"};
    const bool textual = operation.startsWith("MostrarEditText") || operation == "MostrarSymbolFrm";
    if (!document || own.contains(operation))
        return !document && !textual && !operation.startsWith("MostrarEdit");
    const bool isTextual = shared::EdiçãoActiva == 1;
    static const std::set<QByteArray> shared{"MostrarEditTextFindFrm", "MostrarEditTextOptionsFrm",
                                             "MostrarEditTextWordCountFrm", "MostrarEditTextConvImgFrm"};
    return shared.contains(operation) || (isTextual ? !operation.startsWith("MostrarEditGraph") : !textual);
}

/// What a user would try the keys or the mouse on.
bool isInteresting(const QWidget &control) {
    return control.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton *>(&control) ||
           qobject_cast<const QAbstractScrollArea *>(control.parentWidget());
}

} // namespace

RandomWalk::~RandomWalk() {
    for (const char *scheme : kWebSchemes)
        QDesktopServices::unsetUrlHandler(QString::fromUtf8(scheme));
}

RandomWalk::RandomWalk() {
    for (const char *scheme : kWebSchemes)
        QDesktopServices::setUrlHandler(QString::fromUtf8(scheme), &m_opened, "open");
    writeBytes("some.gro", "GROB 16 4 0F1E2D3C4B5A6978");
    writeBytes("high.gro", "GROB 131 3000 F");
    writeBytes("some.zlt", withMarks("One @Btwo@B\r\n\r\n@Uthree@U #"));
    writeBytes("some.zlg", "{\\rtf1\\ansi some {\\b bold} text\\par and more}");
    writeBytes("garbage.gif", everyByte());
    QImage picture(20, 30, QImage::Format_RGB32);
    picture.fill(Qt::darkGray);
    picture.save(QString::fromStdString(path("some.png")));
}

void RandomWalk::note(const std::string &step) {
    m_trace.push_back(step);
    if (m_trace.size() > kLastSteps)
        m_trace.pop_front();
    if (m_traces)
        std::fprintf(stderr, "%s\n", step.c_str());
}

void RandomWalk::watch() {
    // One timer doesn't come again while its own call waits for another dialog.
    QTimer::singleShot(1, &m_opened, [this] {
        watch();
        if (m_stepping)
            answer();
    });
}

void RandomWalk::answer() {
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    else if (QWidget *dialog = QApplication::activeModalWidget(); dialog && dialog->isVisible())
        answer(dialog);
    else
        disturb();
}

void RandomWalk::answer(QWidget *dialog) {
    if (auto *files = qobject_cast<QFileDialog *>(dialog))
        return answer(*files);
    if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
        QAbstractButton *button = oneOf(box->buttons());
        if (!m_forcedPath.isEmpty())
            button = box->button(QMessageBox::Yes) ? box->button(QMessageBox::Yes) : button;
        note("  answer " + button->text().toStdString() + " to " + box->text().toStdString());
        return button->click();
    }
    const bool accepts = once(2) && !qobject_cast<QPrintDialog *>(dialog);
    note(std::string(accepts ? "  accept " : "  leave ") + dialog->metaObject()->className());
    QMetaObject::invokeMethod(dialog, accepts ? "accept" : "reject", Qt::DirectConnection);
}

void RandomWalk::answer(QFileDialog &dialog) {
    constexpr std::array kNames{"some.gro", "high.gro", "some.zlt", "some.zlg", "garbage.gif",
                                "some.png", "missing",  "new-1",    "new-2",    ""};
    const QString name = QString::fromUtf8(oneOf(kNames));
    const QString chosen = m_forcedPath.isEmpty() ? m_folder.filePath(name) : m_forcedPath;
    if (m_forcedPath.isEmpty() && (name.isEmpty() || once(3))) {
        note("  leave the file dialog");
        return dialog.reject();
    }
    note("  choose " + chosen.toStdString());
    dialog.selectFile(chosen);
    if (auto *line = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
        line->setText(chosen);
    QMetaObject::invokeMethod(&dialog, "accept", Qt::DirectConnection);
}

/// Something happens between while a command lets the windows live.
void RandomWalk::disturb() {
    if (m_starting || !m_forcedPath.isEmpty() || !once(12))
        return;
    note("  meanwhile:");
    closeWindow();
}

QList<QWidget *> RandomWalk::windows() {
    QList<QWidget *> found;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->isEnabled() && window->windowType() != Qt::Popup &&
            window->windowType() != Qt::ToolTip)
            found << window;
    std::sort(found.begin(), found.end(), [](const QWidget *a, const QWidget *b) {
        return a->objectName() < b->objectName(); // the same at each run
    });
    return found;
}

QByteArray RandomWalk::someText() {
    static const std::vector<std::string> pieces{
        "a",  "Word ", "\r\n", "@B", "@U",   "@/", "#", "\t", "\x80", "\x8D", "\xFF", "\x1B",    "\r",
        "\n", "é",     "@@",   "\"", "\x9E", "@D", "@", "<<", "ação", "→",    "0",    "\r\n\r\n"};
    std::string text;
    for (unsigned left = random(30); left > 0; --left)
        text += oneOf(pieces);
    return QByteArray::fromStdString(withMarks(text));
}

void RandomWalk::begin() {
    note("start");
    leave();
    m_starting = true;
    if (once(4)) {
        start("\"" + path(once(2) ? "some.zlt" : "some.zlg") + "\"");
    } else {
        startEdition(once(2) ? 1 : 2);
    }
    m_starting = false;
    EXPECT_EQ(loaded<RecoverFrm>(), nullptr) << "no program has crashed";
}

void RandomWalk::type() {
    QWidget *target = fullScreen() ? fullScreen()->focusWidget() : nullptr;
    if (!target && document() && isAtHand(loaded<MDIFrm>()))
        target = &document()->activePane().control();
    if (!target)
        return;
    const QPointer<QWidget> pane = target;
    constexpr std::array kKeys{
        Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Home,      Qt::Key_End,
        Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Tab,
        Qt::Key_Insert, Qt::Key_Enter,    Qt::Key_A,      Qt::Key_K,      Qt::Key_Z,         Qt::Key_Y,
        Qt::Key_C,      Qt::Key_X,        Qt::Key_V,      Qt::Key_F3,     Qt::Key_F6,        Qt::Key_E,
        Qt::Key_U,      Qt::Key_D,        Qt::Key_H,      Qt::Key_Escape};
    constexpr std::array kModifiers{Qt::KeyboardModifiers{},
                                    Qt::KeyboardModifiers{},
                                    Qt::KeyboardModifiers{Qt::ShiftModifier},
                                    Qt::KeyboardModifiers{Qt::ControlModifier},
                                    Qt::ControlModifier | Qt::ShiftModifier,
                                    Qt::KeyboardModifiers{Qt::AltModifier}};
    const QString typed = QStringLiteral("Az09 .,\"éÃ→ß€~");
    note("type");
    for (unsigned left = 1 + random(8); left > 0 && pane && pane->isVisible(); --left) {
        if (once(2))
            typeCharacter(*pane, typed.at(random(std::size_t(typed.size()))));
        else
            QTest::keyClick(pane, oneOf(kKeys), oneOf(kModifiers));
    }
}

void RandomWalk::typeCharacter(QWidget &target, QChar character) {
    const auto *typed = dynamic_cast<Pane *>(&target);
    const bool isPlain = typed && typed->length() < kLongDocument && character.unicode() < 0x80;
    std::string expected = isPlain ? typed->Text() : "";
    if (isPlain)
        expected.replace(std::size_t(typed->SelStart()), std::size_t(typed->SelLength()), 1,
                         character.toLatin1());
    QTest::sendKeyEvent(QTest::Click, &target, Qt::Key_unknown, character, Qt::NoModifier);
    if (isPlain) {
        EXPECT_EQ(typed->Text(), expected);
    }
}

void RandomWalk::callSlot() {
    MDIFrm *frame = loaded<MDIFrm>();
    if (!isAtHand(frame))
        return;
    if (DocumentFrm *window = document(); window && once(2)) {
        const QByteArray operation = oneOf(operationsOf(*window));
        note("document " + operation.toStdString());
        return call(window, operation);
    }
    const QByteArray operation = oneOf(operationsOf(*frame));
    if (!serves(operation, document()))
        return;
    note("frame " + operation.toStdString());
    QMetaObject::invokeMethod(frame, operation.constData(), Qt::DirectConnection);
}

void RandomWalk::triggerAction() {
    MDIFrm *frame = loaded<MDIFrm>();
    if (!isAtHand(frame))
        return;
    QList<QAction *> actions;
    if (DocumentFrm *window = document())
        for (const QList<QMenu *> &menus : {window->menus(), QList<QMenu *>{window->popUp()}})
            for (const QMenu *menu : menus)
                if (menu->menuAction()->isEnabled())
                    actions << menu->findChildren<QAction *>();
    for (QToolBar *bar : frame->findChildren<QToolBar *>())
        if (bar->isVisible() && bar->isEnabled())
            actions << bar->actions();
    if (actions.isEmpty())
        return;
    QAction *action = oneOf(actions);
    if (!action->isEnabled() || action->menu() || action->isSeparator())
        return;
    note("item " + action->objectName().toStdString());
    action->trigger();
}

void RandomWalk::useWindow() {
    const QList<QWidget *> standing = windows();
    if (standing.isEmpty())
        return;
    QWidget *window = oneOf(standing);
    const bool anything = once(10);
    QList<QWidget *> controls;
    for (QWidget *control : window->findChildren<QWidget *>())
        if (control->isVisible() && control->isEnabled() && control->window() == window &&
            (anything || isInteresting(*control)))
            controls << control;
    if (!controls.isEmpty())
        useControl(*oneOf(controls));
}

void RandomWalk::useControl(QWidget &control) {
    const QPointer<QWidget> used = &control;
    const auto place = [&] {
        return QPoint(static_cast<int>(random(std::size_t(std::max(used->width(), 1)))),
                      static_cast<int>(random(std::size_t(std::max(used->height(), 1)))));
    };
    note("use " + control.window()->objectName().toStdString() + "." + control.metaObject()->className() +
         " " + control.objectName().toStdString());
    switch (random(6)) {
    case 0:
        return QTest::mouseDClick(used, Qt::LeftButton, {}, place());
    case 1:
        return QTest::mouseClick(used, Qt::RightButton, {}, place());
    case 2:
        QTest::mousePress(used, Qt::LeftButton, {}, place());
        for (int i = 0; i < 3 && used; ++i)
            QTest::mouseMove(used, place());
        if (used)
            QTest::mouseRelease(used, Qt::LeftButton, {}, place());
        return;
    case 3:
        for (int i = 0; i < 4 && used && used->isVisible(); ++i)
            QTest::keyClick(used, oneOf(std::array{Qt::Key_Down, Qt::Key_Up, Qt::Key_Space, Qt::Key_1,
                                                   Qt::Key_0, Qt::Key_A, Qt::Key_Backspace, Qt::Key_Tab}));
        return;
    default:
        return QTest::mouseClick(used, Qt::LeftButton, {}, place());
    }
}

void RandomWalk::closeWindow() {
    const QList<QWidget *> standing = windows();
    if (DocumentFrm *window = document(); window && isAtHand(loaded<MDIFrm>()) && once(3)) {
        note("close the document");
        window->close();
    } else if (!standing.isEmpty()) {
        QWidget *chosen = oneOf(standing);
        if (chosen == loaded<MDIFrm>() && !once(6))
            return;
        note("close " + chosen->objectName().toStdString());
        chosen->close();
    }
}

void RandomWalk::fillClipboard() {
    auto mime = std::make_unique<QMimeData>();
    const unsigned kind = random(20);
    note("clipboard " + std::to_string(kind));
    if (kind < 2) // what is made of it takes long enough to be disturbed
        mime->setText(QString::fromUtf8(someText()).repeated(3000));
    else if (kind < 4)
        mime->setImageData(QImage(m_folder.filePath(QStringLiteral("some.png"))));
    else if (kind < 8)
        mime->setData(QStringLiteral("text/rtf"), "{\\rtf1 pasted {\\b\\i rich}\\par text}");
    else
        mime->setText(QString::fromUtf8(someText()));
    QGuiApplication::clipboard()->setMimeData(mime.release());
    if (kind < 2 && document() && isAtHand(loaded<MDIFrm>()))
        call(document(), "EditarColar");
}

void RandomWalk::drop() {
    DocumentFrm *window = document();
    if (!window || !isAtHand(loaded<MDIFrm>()))
        return;
    QWidget *target = window->activePane().control().viewport();
    QMimeData dragged;
    dragged.setText(QString::fromUtf8(someText()));
    const QPoint place(static_cast<int>(random(200)), static_cast<int>(random(200)));
    note("drop");
    dropOn(target, dragged, place);
}

void RandomWalk::step() {
    struct Kind {
        unsigned weight;
        void (RandomWalk::*take)();
    };
    // In front of a frame that waits there is only the window that it waits for.
    constexpr std::array<Kind, 8> kKinds{{{30, &RandomWalk::type},
                                          {14, &RandomWalk::callSlot},
                                          {20, &RandomWalk::triggerAction},
                                          {4, &RandomWalk::drop},
                                          {3, &RandomWalk::useDocument},
                                          {4, &RandomWalk::fillClipboard},
                                          {22, &RandomWalk::useWindow},
                                          {3, &RandomWalk::closeWindow}}};
    if (!isAtHand(loaded<MDIFrm>()) && !fullScreen())
        return once(8) ? closeWindow() : useWindow();
    if (document() && pane().length() > kLongDocument && once(8)) {
        note("delete all");
        pane().setSelStart(0);
        pane().setSelLength(pane().length());
        return pane().setSelText({});
    }
    unsigned left = random(100);
    const Kind *kind = kKinds.data();
    for (; left >= kind->weight; ++kind)
        left -= kind->weight;
    (this->*kind->take)();
}

} // namespace zolt::test
