#include "shell/document/graphic/edit_graph_frm_tables.h"
#include "shell/document/text/edit_text_frm_tables.h"
#include "shell/frame/mdi_frm_tables.h"
#include "shell/tools/edit_text_find_frm.h"
#include "support/program.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <algorithm>

namespace zolt {
namespace {

using namespace test;

class CommandTables : public ProgramTest {
protected:
    static void expectSlotsAndIcons(const QList<QObject *> &receivers, const char *name, const char *slot,
                                    const char *icon) {
        const QByteArray signature = QByteArray(slot) + "()";
        const bool known = std::any_of(receivers.begin(), receivers.end(), [&](const QObject *receiver) {
            return receiver->metaObject()->indexOfSlot(signature.constData()) >= 0;
        });
        EXPECT_TRUE(!slot || known) << name << " calls " << slot;
        EXPECT_TRUE(!icon || QFile::exists(QStringLiteral(":/icons/%1.svg").arg(QString::fromUtf8(icon))))
            << icon;
    }
};

TEST_F(CommandTables, NameOnlyOperationsAndPicturesThatExist) {
    const QList<QObject *> frame{&start()};
    for (const auto &row : frameMenuTable())
        expectSlotsAndIcons(frame, row.name, row.slot, row.icon);
    for (const auto &row : frameToolbarTable())
        expectSlotsAndIcons(frame, row.key, row.slot, row.icon);
    for (const int edition : {1, 2}) {
        leave();
        const bool text = edition == 1;
        const QList<QObject *> document{&startEdition(edition), loaded<MDIFrm>()};
        for (const auto &row :
             text ? textMenuTable() + textPopUpTable() : graphMenuTable() + graphPopUpTable())
            expectSlotsAndIcons(document, row.name, row.slot, row.icon);
        for (const auto &row : text ? textStandardToolbarTable() + textFormatToolbarTable()
                                    : graphStandardToolbarTable() + graphFormatToolbarTable())
            expectSlotsAndIcons(document, row.key, row.slot, row.icon);
    }
}

TEST_F(CommandTables, GiveTheKeysOfTheTextEdition) {
    EditTextFrm &window = startTextEdition();
    window.textPane(1).setText("abc");
    window.textPane(1).setFocus();
    // Ctrl+A opens, Ctrl+O is New, Ctrl+G saves.
    const auto press = [&](Qt::Key key) {
        loaded<MDIFrm>()->activateWindow();
        ASSERT_TRUE(waitFor([] { return loaded<MDIFrm>()->isActiveWindow(); }));
        window.textPane(1).setFocus();
        QTest::keyClick(&window.textPane(1), key, Qt::ControlModifier);
    };
    QString opened;
    whenModal("QFileDialog", [&](QWidget *dialog) {
        opened = dialog->windowTitle();
        dialog->close();
    });
    press(Qt::Key_A);
    EXPECT_EQ(opened, QStringLiteral("Open"));
    Answer cancel(QMessageBox::Cancel);
    press(Qt::Key_O);
    EXPECT_EQ(cancel.text(), QStringLiteral("Exit document ?"));
    answerFileDialog(path("saved.zlt"));
    press(Qt::Key_G);
    EXPECT_EQ(fileBytes("saved.zlt"), "abc\r\n");
    // Beside these stand the keys of other editors.
    window.textPane(1).setText("def");
    press(Qt::Key_S);
    EXPECT_EQ(fileBytes("saved.zlt"), "def\r\n");
    press(Qt::Key_F);
    EXPECT_NE(loaded<EditTextFindFrm>(), nullptr);
}

TEST_F(CommandTables, LeaveOnlyTheFramesOwnCommandsWithoutADocument) {
    MDIFrm &frame = start();
    QStringList enabled;
    for (const auto &row : frameMenuTable())
        if (const auto *item = frame.findChild<QAction *>(QString::fromUtf8(row.name));
            item && !item->menu() && !item->isSeparator() && item->isEnabled())
            enabled << item->objectName();
    EXPECT_EQ(enabled,
              QStringList({QStringLiteral("MnuFicheiroNovo"), QStringLiteral("MnuFicheiroSair"),
                           QStringLiteral("MnuVerBarradeferramentas"), QStringLiteral("MnuAjudadozolt"),
                           QStringLiteral("MnuAjudaAcercadoZOLT")}));
    EXPECT_EQ(frame.toolbar(1)->actions().size(), 5);
    QStringList menus;
    for (const QAction *menu : frame.menuBar()->actions())
        menus << menu->objectName();
    EXPECT_EQ(menus.join(u' '), QStringLiteral("MnuFicheiro MnuVer MnuJanela MnuAjuda"));
}

TEST_F(CommandTables, TheFramesToolbarFollowsItsItemAndComesBackWithAnEmptyFrame) {
    MDIFrm &frame = start();
    auto *item = control<QAction>(&frame, "MnuVerBarradeferramentas");
    item->trigger();
    EXPECT_TRUE(frame.toolbar(1)->isHidden());
    call(&frame, "MnuFicheiroNovo");
    startTextEdition().close();
    EXPECT_TRUE(item->isChecked());
    EXPECT_FALSE(frame.toolbar(1)->isHidden());
}

} // namespace
} // namespace zolt
