#include "core/document.h"
#include "images/grob.h"
#include "images/image_text.h"
#include "platform/rich_text_box.h"
#include "platform/surface_view.h"
#include "shell/pictures/edit_text_conv_img_frm.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
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

using namespace test;

const std::string kCell = withMarks("#F9999F");

std::string pcPicture(QColor colour) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(colour);
    QBuffer file;
    image.save(&file, "BMP");
    return file.data().toStdString();
}

/// A GROB of the calculator's width, all black.
std::string blackGrob(int height) {
    return "GROB 131 " + std::to_string(height) + " " +
           std::string(34 * static_cast<std::size_t>(height), 'F');
}

std::string blackImageText(int width, int height) {
    DotSurface surface(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            surface.setDot(x, y);
    return LerFigura(surface);
}

class PictureWindows : public ProgramTest {
protected:
    explicit PictureWindows(int edition = 1) : m_document(startEdition(edition)) {}

    /// The insert window of this name, opened with a file, or with none after a Cancel.
    QWidget &open(const char *window, const std::string &file) {
        answerFileDialog(file);
        call(loaded<MDIFrm>(), qPrintable(QStringLiteral("Mostrar%1").arg(window)));
        return *shown(window);
    }
    static QWidget *shown(const char *window) {
        for (QWidget *candidate : QApplication::topLevelWidgets())
            if (candidate->isVisible() && candidate->objectName() == QLatin1String(window))
                return candidate;
        return nullptr;
    }
    static void press(QWidget &window, const char *name) { test::press(&window, name); }
    static void type(QWidget &window, const char *box, const char *text) {
        control<QLineEdit>(&window, box)->selectAll();
        QTest::keyClicks(control<QLineEdit>(&window, box), QString::fromUtf8(text));
    }
    void openAnother(QWidget &window, const std::string &file) {
        answerFileDialog(file);
        call(&window, "AbrirImagem");
    }
    static void expectBar(QWidget &window, const char *name, int rows) {
        auto *bar = control<QScrollBar>(&window, name);
        EXPECT_EQ(bar->isVisible(), rows > 65) << rows;
        EXPECT_EQ(bar->maximum(), std::max(rows - 65, 0) * 2) << rows;
    }

    /// Makes the active pane hold these bytes and no others.
    void write(std::string_view bytes) {
        call(&m_document, "EditarSeleccionarTudo");
        m_document.activePane().setSelText(bytes);
    }
    std::string text() { return m_document.activePane().Text(); }

    DocumentFrm &m_document;
};

/// A window that inserts pictures of one source.
struct Insertion {
    int edition;
    const char *window;
    std::string Settings::*folder;
    const char *title;
    const char *openedTitle;
    const char *frameBefore;
    const char *frameAfter;
    std::string picture; // as its file's bytes
    /// The text that stands for it in the document, and that of no picture.
    std::string inserted;
    std::string nothing;
    QSize emptySurface;
    std::string refused;
    const char *complaint;
};

std::vector<Insertion> insertions() {
    const char *frame = "Pré-visualização ";
    const std::string twoCells = kCell + "\r\n" + kCell;
    const Insertion pcPictures{1,
                               "EditTextInsertImageFrm",
                               &Settings::DfDirIPC,
                               "Insert BMP GIF JPG ...",
                               "Insert image - ",
                               "Original image",
                               "Original image",
                               pcPicture(Qt::black),
                               blackImageText(132, 65),
                               "",
                               QSize(132, 65),
                               "a text",
                               "Image format not recognized."};
    const Insertion grobs{1,
                          "EditTextInsertGrobFrm",
                          &Settings::DfDirIGr,
                          "Insert HP Grob",
                          "Insert GROB - ",
                          frame,
                          "( 8 x  6 ) ",
                          "HPHP48-R\r\n  GROB 8 6 FF90909090FF\r\n",
                          kCell + withMarks("#F0000F"),
                          "",
                          QSize(132, 65),
                          "GROB 50000 1000000 F",
                          "refused can't be opened: the picture is too large."};
    const Insertion imageTexts{1,
                               "EditTextInsertVeldaFrm",
                               &Settings::DfDirIHa,
                               "Insert ZOLT image",
                               "Insert ZOLT image - ",
                               frame,
                               frame,
                               twoCells + "\r\n",
                               twoCells,
                               "",
                               QSize(132, 65),
                               "a text\n",
                               "refused can't be opened: it holds no picture cell."};
    const auto graphical = [](Insertion source, const char *window, std::string Settings::*folder) {
        source.edition = 2;
        source.window = window;
        source.folder = folder;
        source.inserted = source.nothing = " "; // a picture, and a white one
        source.emptySurface = QSize(131, 64);
        return source;
    };
    return {pcPictures,
            grobs,
            imageTexts,
            graphical(pcPictures, "EditGraphInsertImageFrm", &Settings::DfDirCnv),
            graphical(grobs, "EditGraphInsertGrobFrm", &Settings::DfDirIGr),
            graphical(imageTexts, "EditGraphInsertVeldaFrm", &Settings::DfDirIHa)};
}

class InsertWindow : public PictureWindows, public testing::WithParamInterface<Insertion> {
protected:
    InsertWindow() : PictureWindows(GetParam().edition) {}
};

INSTANTIATE_TEST_SUITE_P(Of, InsertWindow, testing::ValuesIn(insertions()),
                         [](const auto &source) { return std::string(source.param.window); });

TEST_P(InsertWindow, PutsItsPictureInPlaceOfTheSelectionAndStays) {
    const Insertion &source = GetParam();
    writeBytes("picture", source.picture);
    const std::string other = text();
    call(&m_document, "EditarTranslinearpalavras");
    write("before AFTER after");
    m_document.pane(2).setSelStart(7);
    m_document.pane(2).setSelLength(5);
    QWidget &window = open(source.window, path("picture"));
    openAnother(window, {});
    EXPECT_EQ(window.windowTitle(), source.openedTitle + QStringLiteral("picture"));
    EXPECT_EQ(window.findChild<QGroupBox *>()->title(), QString::fromUtf8(source.frameAfter));
    EXPECT_EQ(shared::settings.*source.folder, path(""));
    press(window, "Command2");
    press(window, "Command2");
    EXPECT_EQ(m_document.pane(2).Text(), "before " + source.inserted + source.inserted + " after");
    EXPECT_EQ(m_document.pane(1).Text(), other);
}

TEST_P(InsertWindow, KeepsNothingOfTheFileBeforeOneThatIsRefused) {
    const Insertion &source = GetParam();
    writeBytes("picture", source.picture);
    writeBytes("refused", source.refused);
    writeBytes("empty", "");
    QWidget &window = open(source.window, {});
    for (const char *file : {"refused", "empty"}) {
        SCOPED_TRACE(file);
        openAnother(window, path("picture"));
        write("");
        Answer ok(QMessageBox::Ok);
        openAnother(window, path(file));
        // Nothing is said of an empty text.
        const bool silent = file == std::string("empty") && !ok.came();
        EXPECT_EQ(ok.text(), QString::fromUtf8(silent ? "" : source.complaint));
        EXPECT_EQ(window.windowTitle(), QString::fromUtf8(source.title));
        EXPECT_EQ(window.findChild<QGroupBox *>()->title(), QString::fromUtf8(source.frameBefore));
        EXPECT_EQ(window.findChild<SurfaceView *>()->sizeInDots(), source.emptySurface);
        press(window, "Command2");
        EXPECT_EQ(text(), source.nothing);
    }
}

TEST_P(InsertWindow, AsksInItsFolderAndHoldsTheTextEditionsCommandsUntilItCloses) {
    const bool holds = GetParam().edition == 1;
    const int toolbar = GetParam().edition * 2;
    const auto enabled = [&] {
        return loaded<MDIFrm>()->toolbar(toolbar)->isEnabled() &&
               loaded<MDIFrm>()->toolbar(toolbar + 1)->isEnabled() &&
               m_document.menus().first()->menuAction()->isEnabled() && m_document.popUp()->isEnabled();
    };
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("last")));
    shared::settings.*GetParam().folder = path("last/");
    const std::function<void(QWidget &)> roads[] = {
        [](QWidget &window) { press(window, "Command3"); },
        [](QWidget &window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](QWidget &window) { window.close(); },
    };
    for (const auto &out : roads) {
        QString folder;
        whenModal("QFileDialog", [&](QWidget *dialog) {
            EXPECT_EQ(enabled(), !holds);
            folder = qobject_cast<QFileDialog *>(dialog)->directory().path();
            qobject_cast<QFileDialog *>(dialog)->reject();
        });
        call(loaded<MDIFrm>(), qPrintable(QStringLiteral("Mostrar%1").arg(GetParam().window)));
        EXPECT_EQ(folder.toStdString(), path("last"));
        EXPECT_EQ(enabled(), !holds);
        out(*shown(GetParam().window));
        deleteClosed();
        EXPECT_TRUE(enabled());
    }
}

/// The insert windows of the graphical edition.
class GraphInsertWindows : public PictureWindows {
protected:
    GraphInsertWindows() : PictureWindows(2), m_pane(dynamic_cast<RichTextBox &>(m_document.activePane())) {}

    /// The picture that alone is the document; null if something else is.
    QImage picture() {
        const RichText text = m_pane.richText();
        if (text.paragraphs.size() != 1 || text.paragraphs[0].runs.size() != 1)
            return {};
        const RichPicture *found = text.paragraphs[0].runs[0].content.picture();
        return found ? QImage::fromData(QByteArray::fromStdString(found->bytes)) : QImage();
    }

    RichTextBox &m_pane;
};

TEST_F(GraphInsertWindows, StretchAnySourceOverTheScreenInItsColours) {
    // Each has its left half in its colour and the right one white.
    QImage halves(4, 4, QImage::Format_RGB32);
    halves.fill(Qt::white);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 2; ++x)
            halves.setPixelColor(x, y, Qt::red);
    ASSERT_TRUE(halves.save(QString::fromStdString(path("halves.bmp"))));
    writeBytes("halves.gro", "GROB 8 2 F0F0");
    writeBytes("halves.zli", withMarks("#FFFFFF#000000\r\n"));
    struct Case {
        const char *window;
        const char *file;
        QColor colour;
    };
    for (const auto &[window, file, colour] : {Case{"EditGraphInsertImageFrm", "halves.bmp", Qt::red},
                                               {"EditGraphInsertGrobFrm", "halves.gro", Qt::black},
                                               {"EditGraphInsertVeldaFrm", "halves.zli", Qt::black}}) {
        SCOPED_TRACE(file);
        write("");
        QWidget &opened = open(window, path(file));
        press(opened, "Command1");
        EXPECT_EQ(shown(window), nullptr);
        deleteClosed();
        const QImage inserted = picture();
        ASSERT_EQ(inserted.size(), QSize(262, 128));
        for (const auto &[x, y, expected] : {std::tuple(0, 0, colour),
                                             {129, 0, colour},
                                             {0, 123, colour},
                                             {129, 123, colour},
                                             {130, 0, QColor(Qt::white)},
                                             {259, 123, Qt::white},
                                             {0, 124, Qt::white},
                                             {261, 127, Qt::white}})
            EXPECT_EQ(inserted.pixelColor(x, y), expected) << x << ' ' << y;
    }
}

TEST_F(GraphInsertWindows, InsertSeveralAndLeaveTheFocusInTheDocument) {
    writeBytes("black.gro", blackGrob(64));
    write("");
    QWidget &window = open("EditGraphInsertGrobFrm", path("black.gro"));
    press(window, "Command2");
    EXPECT_NE(shown("EditGraphInsertGrobFrm"), nullptr);
    EXPECT_TRUE(waitFor([&] { return m_pane.hasFocus(); }));
    QTest::keyClicks(&m_pane, QStringLiteral("a"));
    press(window, "Command2");
    EXPECT_EQ(text(), " a ");
    call(&m_document, "EditarAnularintrodução");
    EXPECT_EQ(text(), " a");
    press(window, "Command3");
    EXPECT_TRUE(waitFor([&] { return m_pane.hasFocus(); }));
}

TEST_F(PictureWindows, TypedSizesOutOfRangeAreNotActedOn) {
    writeBytes("black.bmp", pcPicture(Qt::black));
    QWidget &window = open("EditTextInsertImageFrm", path("black.bmp"));
    auto *view = window.findChild<SurfaceView *>();
    for (const char *text : {"x", "0", "133", "132"}) {
        type(window, "Text2", text);
        EXPECT_EQ(control<QLineEdit>(&window, "Text2")->text(), QString::fromUtf8(text));
    }
    type(window, "Text3", "1090");
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
    type(window, "Text3", "x");
    QTest::keyClick(control<QLineEdit>(&window, "Text2"), Qt::Key_Down);
    EXPECT_EQ(view->sizeInDots().height(), 110);
}

TEST_F(PictureWindows, GoWithTheirDocumentButStayWhenTheFrameIsMinimised) {
    const std::function<void()> ways[] = {[&] { m_document.hide(); }, [&] { m_document.showMinimized(); },
                                          [&] { m_document.close(); }};
    for (const auto &goAway : ways) {
        m_document.showNormal();
        open("EditTextInsertGrobFrm", {});
        loaded<MDIFrm>()->showMinimized();
        QCoreApplication::processEvents();
        ASSERT_NE(shown("EditTextInsertGrobFrm"), nullptr);
        loaded<MDIFrm>()->showNormal();
        goAway();
        EXPECT_TRUE(waitFor([] { return shown("EditTextInsertGrobFrm") == nullptr; }));
    }
}

TEST_F(PictureWindows, TheBarStandsBesideWhatIsHigherThanItsFrame) {
    writeBytes("tall.gro", blackGrob(400));
    writeBytes("low.gro", blackGrob(65));
    QWidget &grob = open("EditTextInsertGrobFrm", path("tall.gro"));
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

    writeBytes("black.bmp", pcPicture(Qt::black));
    QWidget &picture = open("EditTextInsertImageFrm", path("black.bmp"));
    press(picture, "Command1");
    expectBar(picture, "VScroll2", 65);
    type(picture, "Text3", "100");
    press(picture, "Command1");
    expectBar(picture, "VScroll1", 100);
    expectBar(picture, "VScroll2", 100);
    // The view is of the picture before.
    openAnother(picture, path("black.bmp"));
    expectBar(picture, "VScroll1", 100);
    expectBar(picture, "VScroll2", 65);
}

TEST_F(PictureWindows, WarnOfAGrobThatIsTooWide) {
    writeBytes("wide.gro", "GROB 136 1 " + std::string(34, 'F'));
    Answer ok(QMessageBox::Ok);
    open("EditTextInsertGrobFrm", path("wide.gro"));
    EXPECT_EQ(ok.text().toStdString(), kGrobTooWide);
}

TEST_F(PictureWindows, StopAndCloseInsertNothingAndTheNextReadingIsWhole) {
    // So high that the reading gives way to the buttons more than once.
    writeBytes("endless.gro", "GROB 131 32767 F");
    QWidget &window = open("EditTextInsertGrobFrm", path("endless.gro"));
    for (const char *button : {"Command4", "Command3"}) {
        bool pressed = false;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, &window, [&] {
            if (control<QProgressBar>(&window, "ProgressBar1")->value() <= 0)
                return;
            poll.stop();
            pressed = true;
            press(window, button);
        });
        poll.start(0);
        press(window, "Command2");
        EXPECT_TRUE(pressed);
        EXPECT_EQ(text(), "") << button;
    }
    deleteClosed();
    writeBytes("tall.gro", blackGrob(396));
    press(open("EditTextInsertGrobFrm", path("tall.gro")), "Command2");
    EXPECT_EQ(text(), blackImageText(132, 396));
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

TEST_F(Conversion, KeepsTheKindOfTheSourceOverCancelAndReopening) {
    // Before a first source there is nothing to convert or to show.
    press(*m_window, "Command6");
    press(*m_window, "Command7");
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    writeBytes("image.zli", kCell + "\r\n");
    choose(6, path("image.zli"));
    EXPECT_EQ(shared::TipoDeConversão, 6);
    choose(1, {});
    EXPECT_EQ(shared::TipoDeConversão, 6);
    EXPECT_EQ(control<QLineEdit>(m_window, "Text4")->text().toStdString(), path("image.zli"));
    for (const char *target : {"image.gro", "again.gro"}) {
        convert(path(target));
        EXPECT_EQ(fileBytes(target), "  GROB 3 4 F0909090\r\n");
    }
    press(*m_window, "Command1");
    deleteClosed();
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    call(loaded<MDIFrm>(), "MostrarEditTextConvImgFrm");
    EXPECT_EQ(shared::TipoDeConversão, 6);
}

TEST_F(Conversion, MakesEachTargetFromItsSource) {
    writeBytes("screen.gro", blackGrob(64));
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
    choose(1, {});
    EXPECT_FALSE(control<QWidget>(m_window, "Picture6")->isVisible());
}

TEST_F(Conversion, KeepsNothingOfTheSourceBeforeOneThatIsRefused) {
    const std::string blank = fileFromDocument(LerFigura(DotSurface(132, 65)));
    writeBytes("text.any", "a text\n");
    writeBytes("tall.gro", blackGrob(400));
    for (const auto &[kind, complaint] :
         {std::pair(1, "Image format not recognized."),
          {5, "text.any can't be opened: it holds no GROB with its width and height."},
          {6, "text.any can't be opened: it holds no picture cell."}}) {
        SCOPED_TRACE(kind);
        choose(5, path("tall.gro"));
        press(*m_window, "Command7");
        expectBar(*m_window, "VScroll1", 400);
        expectBar(*m_window, "VScroll2", 400);
        Answer ok(QMessageBox::Ok);
        choose(kind, path("text.any"));
        EXPECT_EQ(ok.text(), QString::fromUtf8(complaint));
        expectBar(*m_window, "VScroll1", 65);
        expectBar(*m_window, "VScroll2", 65);
        EXPECT_EQ(control<QGroupBox>(m_window, "Frame3")->title(), QStringLiteral("Preview"));
        EXPECT_FALSE(control<QWidget>(m_window, "Picture6")->isVisible());
        if (kind == 6)
            break;
        convert(path("blank.zli"));
        EXPECT_EQ(fileBytes("blank.zli"), blank);
        QFile::remove(QString::fromStdString(path("blank.zli")));
    }
    Answer nothing(QMessageBox::Ok);
    press(*m_window, "Command6");
    EXPECT_EQ(nothing.text(), QStringLiteral("There is no ZOLT image to convert."));
}

TEST_F(Conversion, AndInsertingSayThatAPictureWithoutBlackWouldShowNothing) {
    writeBytes("grey.bmp", pcPicture(QColor(1, 1, 1)));
    writeBytes("black.bmp", pcPicture(Qt::black));
    writeBytes("black.gro", blackGrob(6));
    const auto isSaid = [](QWidget &window) { return control<QLabel>(&window, "NothingShows")->isVisible(); };
    choose(3, path("grey.bmp"));
    EXPECT_TRUE(isSaid(*m_window));
    choose(4, path("black.gro"));
    EXPECT_FALSE(isSaid(*m_window));
    m_window->close();
    QWidget &window = open("EditTextInsertImageFrm", path("grey.bmp"));
    EXPECT_TRUE(isSaid(window));
    openAnother(window, path("black.bmp"));
    EXPECT_FALSE(isSaid(window));
}

TEST_F(Conversion, SaysThatATargetWasNotSaved) {
    writeBytes("black.gro", blackGrob(6));
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
