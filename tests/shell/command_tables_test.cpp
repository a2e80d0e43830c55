#include "shell/edit_text_frm_tables.h"
#include "shell/mdi_frm_tables.h"
#include "support/program.h"

#include <QFile>
#include <QTest>
#include <QToolBar>

namespace zolt {
namespace {

using namespace testing_support;

class CommandTables : public ProgramTest {
protected:
    static void expectSlotsAndIcons(const QObject &receiver, const char *name, const char *slot,
                                    const char *icon) {
        const QByteArray signature = QByteArray(slot) + "()";
        EXPECT_TRUE(!slot || receiver.metaObject()->indexOfSlot(signature.constData()) >= 0)
            << name << " calls " << slot;
        EXPECT_TRUE(!icon || QFile::exists(QStringLiteral(":/icons/%1.svg").arg(QString::fromUtf8(icon))))
            << icon;
    }
};

TEST_F(CommandTables, NameOnlyOperationsAndPicturesThatExist) {
    EditTextFrm &window = startTextEdition();
    for (const auto &row : frameMenuTable())
        expectSlotsAndIcons(*loaded<MDIFrm>(), row.name, row.slot, row.icon);
    for (const auto &row : frameToolbarTable())
        expectSlotsAndIcons(*loaded<MDIFrm>(), row.key, row.slot, row.icon);
    for (const auto *table : {&textMenuTable(), &textPopUpTable()})
        for (const auto &row : *table)
            expectSlotsAndIcons(window, row.name, row.slot, row.icon);
    for (const auto *table : {&textStandardToolbarTable(), &textFormatToolbarTable()})
        for (const auto &row : *table)
            expectSlotsAndIcons(window, row.key, row.slot, row.icon);
}

TEST_F(CommandTables, GiveTheKeysOfTheTextEdition) {
    EditTextFrm &window = startTextEdition();
    window.pane(1).setText("abc");
    window.pane(1).setFocus();
    // Ctrl+A opens, Ctrl+O is New, Ctrl+G saves.
    const auto press = [&](Qt::Key key) {
        loaded<MDIFrm>()->activateWindow();
        ASSERT_TRUE(waitFor([] { return loaded<MDIFrm>()->isActiveWindow(); }));
        window.pane(1).setFocus();
        QTest::keyClick(&window.pane(1), key, Qt::ControlModifier);
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
}

TEST_F(CommandTables, LeaveOnlyTheFramesOwnCommandsWithoutADocument) {
    MDIFrm &frame = start();
    QStringList enabled;
    for (const auto &row : frameMenuTable())
        if (row.level > 0 && qstrcmp(row.caption, "-") != 0 && row.slot)
            enabled << QString::fromUtf8(row.name);
    EXPECT_EQ(enabled,
              QStringList({QStringLiteral("MnuFicheiroNovo"), QStringLiteral("MnuFicheiroSair"),
                           QStringLiteral("MnuVerBarradeferramentas"), QStringLiteral("MnuAjudadozolt"),
                           QStringLiteral("MnuAjudaAcercadoZOLT")}));
    EXPECT_EQ(frame.toolbar(1)->actions().size(), 5);
}

} // namespace
} // namespace zolt
