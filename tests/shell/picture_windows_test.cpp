#include "core/document.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "platform/surface_view.h"
#include "shell/edit_text_conv_img_frm.h"
#include "shell/edit_text_insert_grob_frm.h"
#include "shell/edit_text_insert_image_frm.h"
#include "shell/edit_text_insert_velda_frm.h"
#include "support/program.h"

#include <QAction>
#include <QGroupBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>

namespace zolt {
namespace {

using namespace testing_support;

constexpr std::string_view kCell = "\x9E"
                                   "F9999F";

class PictureWindows : public ProgramTest {
protected:
    PictureWindows() : m_document(startTextEdition()) {}

    template <class Window> Window &openWith(const char *operation, const std::string &file) {
        answerFileDialog(file);
        call(loaded<MDIFrm>(), operation);
        return *loaded<Window>();
    }
    static void press(QWidget &window, const char *name) {
        QTest::mouseClick(control<QPushButton>(&window, name), Qt::LeftButton);
    }
    void writeBlackPicture(const char *name) const {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::black);
        ASSERT_TRUE(image.save(QString::fromStdString(path(name))));
    }
    std::string blackImageText(int columns, int lines) const {
        DotSurface surface(columns * kCellWidth, lines * kCellHeight);
        for (int y = 0; y < surface.height(); ++y)
            for (int x = 0; x < surface.width(); ++x)
                surface.setDot(x, y);
        return LerFigura(surface);
    }

    EditTextFrm &m_document;
};

TEST_F(PictureWindows, InsertAPcPictureTwiceInPlaceOfTheSelection) {
    writeBlackPicture("black.bmp");
    m_document.activePane().setText("before AFTER after");
    m_document.activePane().setSelStart(7);
    m_document.activePane().setSelLength(5);
    auto &window = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("black.bmp"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Insert image - black.bmp"));
    EXPECT_EQ(shared::settings.DfDirIPC, path(""));
    control<QLineEdit>(&window, "Text2")->selectAll();
    QTest::keyClicks(control<QLineEdit>(&window, "Text2"), QStringLiteral("8"));
    control<QLineEdit>(&window, "Text3")->selectAll();
    QTest::keyClicks(control<QLineEdit>(&window, "Text3"), QStringLiteral("6"));
    press(window, "Command2");
    press(window, "Command2");
    const std::string picture = blackImageText(2, 1);
    EXPECT_EQ(m_document.activePane().Text(), "before " + picture + picture + " after");
}

TEST_F(PictureWindows, ABlackPictureFillsTheScreen) {
    writeBlackPicture("black.bmp");
    auto &window = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("black.bmp"));
    press(window, "Command2");
    const auto picture = VerVelda(m_document.activePane().Text());
    EXPECT_EQ(picture.surface.width(), 132);
    EXPECT_EQ(picture.surface.height(), 66);
    for (int y = 0; y < 66; ++y)
        for (int x = 0; x < 132; ++x)
            ASSERT_EQ(picture.surface.dot(x, y), y < 65) << x << ", " << y;
}

TEST_F(PictureWindows, TypedSizesOutOfRangeAreNotActedOn) {
    writeBlackPicture("black.bmp");
    auto &window = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("black.bmp"));
    auto *view = window.findChild<SurfaceView *>();
    for (const char *text : {"x", "0", "133", "132"}) {
        control<QLineEdit>(&window, "Text2")->selectAll();
        QTest::keyClicks(control<QLineEdit>(&window, "Text2"), QString::fromUtf8(text));
        EXPECT_EQ(control<QLineEdit>(&window, "Text2")->text(), QString::fromUtf8(text));
    }
    control<QLineEdit>(&window, "Text3")->selectAll();
    QTest::keyClicks(control<QLineEdit>(&window, "Text3"), QStringLiteral("1090"));
    // "1", "10" and "109" took effect on the way; the last digit didn't.
    EXPECT_EQ(view->sizeInDots().height(), 109);
    QTest::keyClick(control<QLineEdit>(&window, "Text3"), Qt::Key_Backspace);
    QTest::keyClick(control<QLineEdit>(&window, "Text3"), Qt::Key_Up);
    EXPECT_EQ(control<QLineEdit>(&window, "Text3")->text(), QStringLiteral("110"));
}

TEST_F(PictureWindows, ComeBackWithTheCommandsOnEveryRoadOut) {
    const auto enabled = [&] {
        return loaded<MDIFrm>()->toolbar(2)->isEnabled() && loaded<MDIFrm>()->toolbar(3)->isEnabled() &&
               m_document.menus().first()->menuAction()->isEnabled() && m_document.popUp()->isEnabled();
    };
    for (int road = 0; road < 3; ++road) {
        auto &window = openWith<EditTextInsertVeldaFrm>("MostrarEditTextInsertVeldaFrm", {});
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(enabled());
        if (road == 0)
            press(window, "Command3");
        else if (road == 1)
            QTest::keyClick(&window, Qt::Key_Escape);
        else
            window.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(enabled()) << road;
    }
}

TEST_F(PictureWindows, GoWithTheirDocument) {
    openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", {});
    m_document.close();
    EXPECT_TRUE(waitFor([] { return loaded<EditTextInsertGrobFrm>() == nullptr; }));
}

TEST_F(PictureWindows, InsertAGrobIntoThePaneThatTheSettingsName) {
    writeBytes("dot.gro", "HPHP48-R\r\n  GROB 8 6 F000000000F0\r\n");
    call(&m_document, "EditarTranslinearpalavras");
    auto &window = openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", path("dot.gro"));
    EXPECT_EQ(control<QGroupBox>(&window, "Frame1")->title(), QStringLiteral("( 8 x  6 ) "));
    press(window, "Command2");
    EXPECT_EQ(m_document.pane(2).Text(), "\x9E"
                                         "F0000F\x9E"
                                         "000000");
    EXPECT_EQ(m_document.pane(1).Text(), "");
}

TEST_F(PictureWindows, WarnOfAGrobThatIsTooWide) {
    writeBytes("wide.gro", "GROB 136 1 " + std::string(34, 'F'));
    Answer ok(QMessageBox::Ok);
    answerFileDialog(path("wide.gro"));
    call(loaded<MDIFrm>(), "MostrarEditTextInsertGrobFrm");
    EXPECT_EQ(ok.text().toStdString(), kGrobTooWide);
}

TEST_F(PictureWindows, InsertAStoredImageAsItStands) {
    writeBytes("image.zli", std::string(kCell) + "\r\n" + std::string(kCell) + "\r\n");
    auto &window = openWith<EditTextInsertVeldaFrm>("MostrarEditTextInsertVeldaFrm", path("image.zli"));
    press(window, "Command2");
    EXPECT_EQ(m_document.activePane().Text(), std::string(kCell) + "\r\n" + std::string(kCell));
}

TEST_F(PictureWindows, StopInsertsNothing) {
    writeBlackPicture("black.bmp");
    auto &window = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("black.bmp"));
    control<QLineEdit>(&window, "Text3")->selectAll();
    QTest::keyClicks(control<QLineEdit>(&window, "Text3"), QStringLiteral("1089"));
    // The stop comes as soon as the reading lets the windows live for the first time.
    QTimer stop;
    QObject::connect(&stop, &QTimer::timeout, &window, [] { shared::PararLeitura = 1; });
    stop.start(0);
    press(window, "Command2");
    stop.stop();
    const auto length = m_document.activePane().length();
    EXPECT_TRUE(length == 0 || length == static_cast<qsizetype>(blackImageText(33, 182).size())) << length;
}

class Conversion : public PictureWindows {
protected:
    Conversion() {
        call(loaded<MDIFrm>(), "MostrarEditTextConvImgFrm");
        m_window = loaded<EditTextConvImgFrm>();
    }
    void choose(int kind, const std::string &file) {
        control<QRadioButton>(m_window, qPrintable(QStringLiteral("Option%1").arg(kind)))->setChecked(true);
        answerFileDialog(file);
        press(*m_window, "Command2");
    }
    void convert(const std::string &file) {
        answerFileDialog(file);
        press(*m_window, "Command6");
    }

    EditTextConvImgFrm *m_window;
};

TEST_F(Conversion, DoesNothingBeforeAFirstSource) {
    press(*m_window, "Command6");
    press(*m_window, "Command7");
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(Conversion, KeepsTheKindOfTheSourceOverCancelAndReopening) {
    writeBytes("image.zli", std::string(kCell) + "\r\n");
    choose(6, path("image.zli"));
    EXPECT_EQ(shared::TipoDeConversão, 6);
    choose(1, {});
    EXPECT_EQ(shared::TipoDeConversão, 6);
    EXPECT_EQ(control<QLineEdit>(m_window, "Text4")->text().toStdString(), path("image.zli"));
    convert(path("image.gro"));
    EXPECT_EQ(fileBytes("image.gro"), "  GROB 3 4 F0909090\r\n");
    press(*m_window, "Command1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    call(loaded<MDIFrm>(), "MostrarEditTextConvImgFrm");
    EXPECT_EQ(shared::TipoDeConversão, 6);
}

TEST_F(Conversion, MakesEachTargetFromItsSource) {
    std::string rows;
    for (int y = 0; y < 64; ++y)
        rows += std::string(34, 'F');
    writeBytes("screen.gro", "GROB 131 64 " + rows);
    choose(5, path("screen.gro"));
    EXPECT_EQ(control<QGroupBox>(m_window, "Frame3")->title(), QStringLiteral("Preview - ( 131 x  64 ) "));
    convert(path("screen.zli"));
    const ImageTextSize size = measureImageText(documentFromFile(fileBytes("screen.zli")));
    EXPECT_EQ(size, (ImageTextSize{33, 11}));

    choose(2, path("screen.zli"));
    convert(path("screen.bmp"));
    const QImage bitmap(QString::fromStdString(path("screen.bmp")));
    EXPECT_EQ(bitmap.size(), QSize(264, 132));
    EXPECT_EQ(bitmap.pixel(0, 0), qRgb(0, 0, 0));

    choose(3, path("screen.bmp"));
    EXPECT_TRUE(control<QWidget>(m_window, "Picture6")->isVisible());
    convert(path("again.gro"));
    EXPECT_EQ(fileBytes("again.gro").substr(0, 14), "  GROB 131 64 ");
}

TEST_F(Conversion, RefusesWhatIsNoPicture) {
    writeBytes("text.bmp", "not a picture");
    Answer ok(QMessageBox::Ok);
    choose(1, path("text.bmp"));
    EXPECT_EQ(ok.text(), QStringLiteral("Image format not recognized."));
    EXPECT_FALSE(control<QWidget>(m_window, "Picture6")->isVisible());
}

} // namespace
} // namespace zolt
