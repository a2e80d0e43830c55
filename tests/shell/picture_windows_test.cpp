#include "core/document.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "platform/surface_view.h"
#include "shell/pictures/edit_text_conv_img_frm.h"
#include "shell/pictures/edit_text_insert_grob_frm.h"
#include "shell/pictures/edit_text_insert_image_frm.h"
#include "shell/pictures/edit_text_insert_velda_frm.h"
#include "support/program.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
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
    void openAnother(QWidget &window, const std::string &file) {
        answerFileDialog(file);
        call(&window, "AbrirImagem");
    }
    void writePicture(const char *name, QColor colour) const {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(QString::fromStdString(path(name))));
    }
    void writeBlackPicture(const char *name) const { writePicture(name, Qt::black); }
    /// A GROB of the calculator's width, all black.
    void writeBlackGrob(const char *name, int height) const {
        writeBytes(name, "GROB 131 " + std::to_string(height) + " " +
                             std::string(34 * static_cast<std::size_t>(height), 'F'));
    }
    static void expectBar(QWidget &window, const char *name, int rows) {
        auto *bar = control<QScrollBar>(&window, name);
        EXPECT_EQ(bar->isVisible(), rows > 65) << rows;
        EXPECT_EQ(bar->maximum(), std::max(rows - 65, 0) * 2) << rows;
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
    m_document.activeTextPane().setText("before AFTER after");
    m_document.activeTextPane().setSelStart(7);
    m_document.activeTextPane().setSelLength(5);
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
    EXPECT_EQ(m_document.activeTextPane().Text(), "before " + picture + picture + " after");
}

TEST_F(PictureWindows, ABlackPictureFillsTheScreen) {
    writeBlackPicture("black.bmp");
    auto &window = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("black.bmp"));
    press(window, "Command2");
    const auto picture = VerVelda(m_document.activeTextPane().Text());
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
    // What counts is the number as it stands; the spinner has it rounded.
    for (const auto &[pasted, width] : {std::pair("20.5", 20), {"0.4", 1}, {"132.6", 132}, {"133", 132}}) {
        QApplication::clipboard()->setText(QString::fromUtf8(pasted));
        control<QLineEdit>(&window, "Text2")->selectAll();
        QTest::keyClick(control<QLineEdit>(&window, "Text2"), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(view->sizeInDots().width(), width) << pasted;
    }
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

TEST_F(PictureWindows, GoWithTheirDocumentButStayWhenTheFrameIsMinimised) {
    const std::function<void()> ways[] = {[&] { m_document.hide(); }, [&] { m_document.showMinimized(); },
                                          [&] { m_document.close(); }};
    for (const auto &goAway : ways) {
        m_document.showNormal();
        openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", {});
        loaded<MDIFrm>()->showMinimized();
        QCoreApplication::processEvents();
        ASSERT_NE(loaded<EditTextInsertGrobFrm>(), nullptr);
        loaded<MDIFrm>()->showNormal();
        goAway();
        EXPECT_TRUE(waitFor([] { return loaded<EditTextInsertGrobFrm>() == nullptr; }));
    }
}

TEST_F(PictureWindows, TheBarStandsBesideWhatIsHigherThanItsFrame) {
    writeBlackGrob("tall.gro", 400);
    writeBlackGrob("low.gro", 65);
    writeBytes("tall.zli", blackImageText(33, 11) + "\r\n");
    writeBytes("low.zli", blackImageText(33, 10) + "\r\n");
    auto &grob = openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", path("tall.gro"));
    expectBar(grob, "VScroll1", 400);
    auto *bar = control<QScrollBar>(&grob, "VScroll1");
    QCoreApplication::processEvents();
    const int wide = grob.width();
    QTest::keyClick(bar, Qt::Key_Down);
    EXPECT_EQ(control<QWidget>(&grob, "Picture1")->y(), -10);
    openAnother(grob, path("low.gro"));
    expectBar(grob, "VScroll1", 65);
    QCoreApplication::processEvents();
    EXPECT_EQ(grob.width(), wide - bar->sizeHint().width());
    press(grob, "Command3");

    auto &image = openWith<EditTextInsertVeldaFrm>("MostrarEditTextInsertVeldaFrm", path("tall.zli"));
    expectBar(image, "VScroll1", 66);
    openAnother(image, path("low.zli"));
    expectBar(image, "VScroll1", 60);
    press(image, "Command3");

    writeBlackPicture("black.bmp");
    auto &picture = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("black.bmp"));
    press(picture, "Command1");
    expectBar(picture, "VScroll2", 65);
    control<QLineEdit>(&picture, "Text3")->selectAll();
    QTest::keyClicks(control<QLineEdit>(&picture, "Text3"), QStringLiteral("100"));
    press(picture, "Command1");
    expectBar(picture, "VScroll1", 100);
    expectBar(picture, "VScroll2", 100);
}

TEST_F(PictureWindows, KeepNothingOfTheFileBeforeOneThatIsRefused) {
    writeBlackPicture("good.bmp");
    writeBlackGrob("good.gro", 80);
    writeBytes("good.zli", blackImageText(33, 12) + "\r\n");
    writeBytes("bad.bmp", "a text");
    writeBytes("bad.gro", "GROB 50000 1000000 F");
    writeBytes("bad.zli", "a text\n");
    writeBytes("empty.zli", "");
    const auto expectEmptyAfter = [&](QWidget &window, const char *file, const char *complaint,
                                      const char *caption) {
        Answer ok(QMessageBox::Ok);
        openAnother(window, path(file));
        EXPECT_EQ(ok.text(), QString::fromUtf8(complaint));
        EXPECT_EQ(window.windowTitle(), QString::fromUtf8(caption));
        EXPECT_EQ(window.findChild<SurfaceView *>()->sizeInDots(), QSize(132, 65));
        press(window, "Command2");
        EXPECT_EQ(m_document.activeTextPane().Text(), "");
        press(window, "Command3");
    };
    auto &picture = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("good.bmp"));
    expectEmptyAfter(picture, "bad.bmp", "Image format not recognized.", "Insert BMP GIF JPG ...");
    auto &grob = openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", path("good.gro"));
    auto *frame = control<QGroupBox>(&grob, "Frame1");
    expectEmptyAfter(grob, "bad.gro", "bad.gro can't be opened: the picture is too large.", "Insert HP Grob");
    EXPECT_EQ(frame->title(), QStringLiteral("Pré-visualização "));
    for (const auto &[file, complaint] :
         {std::pair("bad.zli", "bad.zli can't be opened: it holds no picture cell."), {"empty.zli", ""}}) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto &image = openWith<EditTextInsertVeldaFrm>("MostrarEditTextInsertVeldaFrm", path("good.zli"));
        expectEmptyAfter(image, file, complaint, "Insert ZOLT image");
    }
}

TEST_F(PictureWindows, SayThatAPictureWithoutBlackWouldShowNothing) {
    writePicture("grey.bmp", QColor(1, 1, 1));
    writeBlackPicture("black.bmp");
    auto &window = openWith<EditTextInsertImageFrm>("MostrarEditTextInsertImageFrm", path("grey.bmp"));
    EXPECT_TRUE(control<QLabel>(&window, "NothingShows")->isVisible());
    openAnother(window, path("black.bmp"));
    EXPECT_FALSE(control<QLabel>(&window, "NothingShows")->isVisible());
}

TEST_F(PictureWindows, InsertAGrobIntoThePaneThatTheSettingsName) {
    writeBytes("dot.gro", "HPHP48-R\r\n  GROB 8 6 F000000000F0\r\n");
    call(&m_document, "EditarTranslinearpalavras");
    auto &window = openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", path("dot.gro"));
    EXPECT_EQ(control<QGroupBox>(&window, "Frame1")->title(), QStringLiteral("( 8 x  6 ) "));
    press(window, "Command2");
    EXPECT_EQ(m_document.textPane(2).Text(), "\x9E"
                                             "F0000F\x9E"
                                             "000000");
    EXPECT_EQ(m_document.textPane(1).Text(), "");
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
    EXPECT_EQ(m_document.activeTextPane().Text(), std::string(kCell) + "\r\n" + std::string(kCell));
}

TEST_F(PictureWindows, StopInsertsNothing) {
    // So high that the reading gives way to the buttons more than once.
    writeBytes("endless.gro", "GROB 131 32767 F");
    auto &window = openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", path("endless.gro"));
    bool stopped = false;
    QTimer stop;
    QObject::connect(&stop, &QTimer::timeout, &window, [&] {
        if (control<QProgressBar>(&window, "ProgressBar1")->value() > 0) {
            press(window, "Command4");
            stopped = true;
            stop.stop();
        }
    });
    stop.start(0);
    press(window, "Command2");
    EXPECT_TRUE(stopped);
    EXPECT_EQ(m_document.activeTextPane().Text(), "");
}

TEST_F(PictureWindows, ReadAgainAfterOneWasClosed) {
    writeBlackGrob("tall.gro", 396);
    for (int time = 0; time < 2; ++time) {
        auto &window = openWith<EditTextInsertGrobFrm>("MostrarEditTextInsertGrobFrm", path("tall.gro"));
        m_document.activeTextPane().setText("");
        press(window, "Command2");
        EXPECT_EQ(m_document.activeTextPane().Text(), blackImageText(33, 66));
        press(window, "Command3");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
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
    // Among all files the extension says which kind it is.
    answerFileDialog(path("screen.GIF"), "All");
    press(*m_window, "Command6");
    EXPECT_TRUE(fileBytes("screen.GIF").starts_with("GIF8"));

    choose(3, path("screen.bmp"));
    EXPECT_TRUE(control<QWidget>(m_window, "Picture6")->isVisible());
    convert(path("again.gro"));
    EXPECT_EQ(fileBytes("again.gro").substr(0, 14), "  GROB 131 64 ");
}

TEST_F(Conversion, KeepsNothingOfTheSourceBeforeOneThatIsRefused) {
    writeBytes("text.any", "a text\n");
    const struct {
        int kind;
        const char *complaint;
        std::string target;
    } cases[] = {
        {1, "Image format not recognized.", fileFromDocument(LerFigura(DotSurface(132, 65)))},
        {5, "text.any can't be opened: it holds no GROB with its width and height.",
         fileFromDocument(LerFigura(DotSurface(132, 65)))},
        {6, "text.any can't be opened: it holds no picture cell.", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.kind);
        writeBlackGrob("tall.gro", 400);
        choose(5, path("tall.gro"));
        press(*m_window, "Command7");
        expectBar(*m_window, "VScroll1", 400);
        expectBar(*m_window, "VScroll2", 400);
        Answer ok(QMessageBox::Ok);
        choose(c.kind, path("text.any"));
        EXPECT_EQ(ok.text(), QString::fromUtf8(c.complaint));
        expectBar(*m_window, "VScroll1", 65);
        expectBar(*m_window, "VScroll2", 65);
        EXPECT_EQ(control<QGroupBox>(m_window, "Frame3")->title(), QStringLiteral("Preview"));
        EXPECT_FALSE(control<QWidget>(m_window, "Picture6")->isVisible() && c.kind == 1);
        if (c.target.empty()) {
            Answer nothing(QMessageBox::Ok);
            press(*m_window, "Command6");
            EXPECT_EQ(nothing.text(), QStringLiteral("There is no ZOLT image to convert."));
        } else {
            const std::string target = std::to_string(c.kind) + ".zli";
            convert(path(target));
            EXPECT_EQ(fileBytes(target), c.target);
        }
    }
}

TEST_F(Conversion, SaysThatAPictureWithoutBlackWouldShowNothing) {
    writePicture("grey.bmp", Qt::darkGray);
    writeBlackGrob("black.gro", 6);
    choose(3, path("grey.bmp"));
    EXPECT_TRUE(control<QLabel>(m_window, "NothingShows")->isVisible());
    choose(4, path("black.gro"));
    EXPECT_FALSE(control<QLabel>(m_window, "NothingShows")->isVisible());
}

TEST_F(Conversion, SaysThatATargetWasNotSaved) {
    writeBlackGrob("black.gro", 6);
    ASSERT_TRUE(QFile::link(QStringLiteral("no folder/none.zli"), QString::fromStdString(path("none.zli"))));
    for (const int kind : {5, 4}) {
        m_document.say({});
        choose(kind, path("black.gro"));
        convert(path("none.zli"));
        EXPECT_TRUE(control<QLabel>(&m_document, "Panel1")->text().startsWith("none.zli wasn't saved: "));
        EXPECT_EQ(shared::settings.DfDirCnv, path(""));
    }
}

} // namespace
} // namespace zolt
