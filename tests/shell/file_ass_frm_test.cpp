#include "shell/tools/file_ass_frm.h"

#include "core/settings.h"
#include "platform/file_types.h"
#include "shell/base/document_in_use.h"
#include "support/other_programs.h"
#include "support/program.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QTest>

namespace zolt {
namespace {

using namespace test;

class FileAssociations : public EditionTest, public testing::WithParamInterface<int> {
protected:
    FileAssociations() : EditionTest(GetParam()) {}

    QWidget *open() {
        deleteClosed();
        m_document->menuItem("MnuOpçõesAssociaçõesdeficheiros")->trigger();
        QWidget *window = loaded<FileAssFrm>();
        EXPECT_TRUE(waitFor([&] { return window->isAncestorOf(QApplication::focusWidget()); }));
        EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
        return window;
    }
    static bool isTicked(const char *check) {
        return control<QCheckBox>(loaded<FileAssFrm>(), check)->isChecked();
    }
    static void tick(const char *check) { control<QCheckBox>(loaded<FileAssFrm>(), check)->click(); }
    static bool opensHere(const char *extension) {
        return opensInThisProgram(extension, QFile::encodeName(qApp->applicationFilePath()).toStdString());
    }
    static bool opensHereSoon(const char *extension) {
        return waitFor([&] { return opensHere(extension); });
    }
};

TEST_P(FileAssociations, AreMadeOfWhatIsTicked) {
    if (!hasProgram("update-mime-database"))
        GTEST_SKIP() << "update-mime-database isn't installed";
    QWidget *window = open();
    EXPECT_FALSE(isTicked("Check1") || isTicked("Check2") || isTicked("Check3"));
    tick("Check1");
    press(window, "Command1");
    EXPECT_TRUE(opensHereSoon("zlt"));
    EXPECT_FALSE(opensHere("zlg"));
    EXPECT_TRUE(window->isVisible());
    for (const char *size : {"16x16", "48x48", "256x256"})
        EXPECT_TRUE(QFile::exists(QString::fromStdString(path("data/icons/hicolor/")) + QLatin1String(size) +
                                  QStringLiteral("/mimetypes/application-x-zolt-text.png")))
            << size;
    press(window, "Command3");
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_TRUE(waitFor([&] { return pane().hasFocus(); }));

    // OK leaves the further extension out, and no association goes by its tick.
    window = open();
    EXPECT_TRUE(isTicked("Check1"));
    tick("Check1");
    tick("Check2");
    tick("Check3");
    QTest::keyClicks(control<QLineEdit>(window, "Text1"), QStringLiteral("txt"));
    press(window, "Command2");
    EXPECT_EQ(loaded<FileAssFrm>(), nullptr);
    EXPECT_TRUE(opensHereSoon("zlg"));
    EXPECT_TRUE(opensHere("zlt"));
    EXPECT_FALSE(opensHere("txt"));

    window = open();
    EXPECT_TRUE(isTicked("Check1") && isTicked("Check2") && !isTicked("Check3"));
    tick("Check3");
    QTest::keyClicks(control<QLineEdit>(window, "Text1"), QStringLiteral("txt"));
    QTest::keyClick(control<QLineEdit>(window, "Text1"), Qt::Key_Return);
    EXPECT_TRUE(opensHereSoon("txt"));
    EXPECT_TRUE(window->isVisible());
}

TEST_P(FileAssociations, AreWorkedByKeys) {
    QWidget *window = open();
    auto *extension = control<QLineEdit>(window, "Text1");
    QTest::keyClicks(extension, QStringLiteral("txt"));
    EXPECT_EQ(extension->text(), QStringLiteral("txt"));
    QTest::keyClick(extension, Qt::Key_A);
    EXPECT_EQ(extension->text(), QString());
    std::string stops;
    for (int stop = 0; stop < 7; ++stop) {
        stops += QApplication::focusWidget()->objectName().toStdString() + " ";
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(stops, "Check1 Check2 Check3 Text1 Command1 Command2 Command3 ");
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("data"))));
}

TEST_P(FileAssociations, ThatFailAreToldInTheStatusBarAlone) {
    qputenv("XDG_DATA_HOME", (path("ZOLT.ini") + "/data").c_str()); // below what is no folder
    QWidget *window = open();
    tick("Check1");
    press(window, "Command1");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(statusMessage().contains(QStringLiteral("wasn't associated")));
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("config/mimeapps.list"))));
}

TEST_P(FileAssociations, AreMadeAtAStartThatIsAskedForThem) {
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path("data"))));
    leave();
    Settings settings = defaultSettings(m_folder.path().toStdString());
    settings.FrstTime = 1;
    writeBytes("ZOLT.ini", fileFromSettings(settings));
    startEdition(GetParam());
    EXPECT_TRUE(fileBytes("config/mimeapps.list").find("application/x-zolt-text=zolt.desktop;\n") !=
                std::string::npos);
    EXPECT_TRUE(!hasProgram("update-mime-database") || (opensHereSoon("zlt") && opensHereSoon("zlg")));
    leave();
    EXPECT_TRUE(fileBytes("ZOLT.ini").starts_with("FrstTime=0\r\n"));
}

INSTANTIATE_TEST_SUITE_P(In, FileAssociations, testing::Values(1, 2));

} // namespace
} // namespace zolt
