#include "graphic/rich_text_builder.h"
#include "platform/rich_text_box.h"
#include "shell/preview/edit_text_preview_normal_frm.h"
#include "shell/preview/wait_frm.h"
#include "shell/tools/edit_page_setup_frm.h"
#include "support/other_programs.h"
#include "support/program.h"
#include "support/texts.h"

#include <QAction>
#include <QBuffer>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <array>

namespace zolt {
namespace {

using namespace test;

/// Prints into a PDF file with the dialog that comes next, once `change` has changed it.
void answerPrintDialog(const std::string &path, const std::function<void(QWidget *)> &change = {}) {
    whenModal("QPrintDialog", [path, change](QWidget *dialog) {
        auto *printers = control<QComboBox>(dialog, "printers");
        for (int i = 0; i < printers->count(); ++i)
            if (printers->itemText(i).contains(QStringLiteral("PDF")))
                printers->setCurrentIndex(i);
        control<QLineEdit>(dialog, "filename")->setText(QString::fromStdString(path));
        if (change)
            change(dialog);
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
    });
}

/// Chooses an orientation in a print dialog.
void turnPaper(QWidget *dialog, const char *orientation) {
    whenModal("QPrintPropertiesDialog", [orientation](QWidget *properties) {
        QTest::mouseClick(control<QRadioButton>(properties, orientation), Qt::LeftButton, {}, QPoint(8, 8));
        QTest::mouseClick(properties->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
    });
    press(dialog, "properties");
}

/// The width of a column in the calculator's fonts: 4 dots of 6.5 to the point size.
constexpr double kColumn = 4 / 6.5;

/// In points.
struct Word {
    QString text;
    QRectF place;
};
struct Page {
    QSizeF size;
    QList<Word> words;
};

class Printing : public EditionTest {
protected:
    explicit Printing(int number) : EditionTest(number) {}

    void setMargins(std::int16_t left, std::int16_t top, std::int16_t right, std::int16_t bottom) {
        Settings &settings = shared::settings;
        settings.PgStpLft = left;
        settings.PgStpTop = top;
        settings.PgStpRgt = right;
        settings.PgStpBot = bottom;
    }
    void SetUp() override {
        if (!hasProgram("pdftotext"))
            GTEST_SKIP() << "poppler's programs are not installed";
    }
    std::string pdf() const { return path("a.pdf"); }
    void printIt(const std::function<void(QWidget *)> &change = {}) {
        QFile::remove(QString::fromStdString(pdf()));
        answerPrintDialog(pdf(), change);
        m_document->menuItem("MnuFicheiroImprimir")->trigger();
    }
    /// The pages with the boxes of their words, as another program reads them.
    QList<Page> pages() const {
        QList<Page> pages;
        const QString boxes = QString::fromStdString(outputOf("pdftotext -bbox " + pdf() + " -"));
        static const QRegularExpression row(
            QStringLiteral("<page width=\"([^\"]*)\" height=\"([^\"]*)\">|<word xMin=\"([^\"]*)\" "
                           "yMin=\"([^\"]*)\" xMax=\"([^\"]*)\" yMax=\"([^\"]*)\">([^<]*)</word>"));
        for (const QRegularExpressionMatch &match : row.globalMatch(boxes)) {
            const auto number = [&](int i) { return match.captured(i).toDouble(); };
            if (match.captured(0).startsWith(QStringLiteral("<page")))
                pages << Page{{number(1), number(2)}, {}};
            else
                pages.last().words << Word{
                    match.captured(7), QRectF(QPointF(number(3), number(4)), QPointF(number(5), number(6)))};
        }
        return pages;
    }
    QStringList words() const {
        QStringList all;
        for (const Page &page : pages())
            for (const Word &word : page.words)
                all << word.text;
        return all;
    }
    /// The first page's dots at a resolution, or those of an area, in dots.
    QImage dots(int resolution, QRect area = {}) const {
        const std::string picture =
            outputOf(QStringLiteral("pdftoppm -aa no -aaVector no -l 1 -r %1 -x %2 -y %3 -W %4 -H %5 ")
                         .arg(resolution)
                         .arg(area.x())
                         .arg(area.y())
                         .arg(area.width())
                         .arg(area.height())
                         .toStdString() +
                     pdf());
        return QImage::fromData(QByteArray::fromStdString(picture), "PPM")
            .convertToFormat(QImage::Format_RGB32);
    }
    std::string fonts() const { return outputOf("pdffonts " + pdf()); }
};

class PrintingOfBoth : public Printing, public testing::WithParamInterface<int> {
protected:
    PrintingOfBoth() : Printing(GetParam()) {}
};

std::string numberedLines(int count) {
    std::string text;
    for (int line = 1; line <= count; ++line)
        text += "Line" + std::to_string(line) + "\r\n";
    return text;
}

QString numbered(int line) {
    return QStringLiteral("Line%1").arg(line);
}

TEST_P(PrintingOfBoth, KeepsTheMarginsOnEveryPage) {
    const std::string text = std::string(9 * 33, 'w') + ' ' + numberedLines(150);
    put(text);
    struct Case {
        const char *orientation;
        std::int16_t left, top, right, bottom;
    };
    for (const Case &margins :
         {Case{"portrait", 1728, 1440, 1728, 1440}, Case{"landscape", 2000, 300, 900, 1100},
          Case{"portrait", 0, 0, 0, 0}, Case{"portrait", 5952, 8400, 0, 0}}) {
        SCOPED_TRACE(margins.left);
        setMargins(margins.left, margins.top, margins.right, margins.bottom);
        printIt([&](QWidget *dialog) { turnPaper(dialog, margins.orientation); });
        const QList<Page> all = pages();
        ASSERT_GT(all.size(), 1);
        int line = 0;
        for (const Page &page : all) {
            EXPECT_EQ(page.size.width() > page.size.height(), qstrcmp(margins.orientation, "landscape") == 0);
            const QRectF room(QPointF(margins.left / 20.0, margins.top / 20.0),
                              QPointF(page.size.width() - margins.right / 20.0,
                                      page.size.height() - margins.bottom / 20.0));
            ASSERT_FALSE(page.words.isEmpty());
            EXPECT_NEAR(page.words.first().place.left(), room.left(), 1);
            EXPECT_NEAR(page.words.first().place.top(), room.top(), 3);
            for (const Word &word : page.words) {
                EXPECT_TRUE(room.adjusted(-1, -3, 1, 3).contains(word.place)) << word.text.toStdString();
                if (word.text.startsWith(u'L')) {
                    EXPECT_EQ(word.text, numbered(++line));
                }
            }
            // But for the last page there is no room for another line.
            if (&page != &all.last()) {
                EXPECT_LT(room.bottom() - page.words.last().place.bottom(), 14);
            }
        }
        EXPECT_EQ(line, 150);
    }
}

TEST_P(PrintingOfBoth, BeginsAsThePageSetupSaysAndIsFollowedByIt) {
    put("abc");
    shared::settings.PgStpOrn = 2;
    printIt();
    EXPECT_EQ(shared::settings.PgStpOrn, 2);
    EXPECT_GT(pages().first().size.width(), pages().first().size.height());
    printIt([](QWidget *dialog) { turnPaper(dialog, "portrait"); });
    EXPECT_EQ(shared::settings.PgStpOrn, 1);
    EXPECT_LT(pages().first().size.width(), pages().first().size.height());
}

TEST_P(PrintingOfBoth, OffersTheSelectionIfThereIsOne) {
    const auto choose = [](QWidget *dialog) {
        for (QPushButton *button : dialog->findChildren<QPushButton *>())
            if (button->text().contains(QStringLiteral("Options")))
                QTest::mouseClick(button, Qt::LeftButton);
        auto *selection = control<QRadioButton>(dialog, "printSelection");
        EXPECT_TRUE(selection->isVisible());
        EXPECT_FALSE(control<QRadioButton>(dialog, "printRange")->isVisible());
        QTest::mouseClick(selection, Qt::LeftButton, {}, QPoint(8, 8));
    };
    put("one two three\r\nfour", 4, 3);
    printIt(choose);
    EXPECT_EQ(words(), QStringList{QStringLiteral("two")});
    put("one two");
    printIt(
        [](QWidget *dialog) { EXPECT_TRUE(control<QRadioButton>(dialog, "printSelection")->isHidden()); });
    EXPECT_EQ(words().size(), 2);
}

TEST_P(PrintingOfBoth, AnEmptyDocumentIsABlankPageAndALastLineEndNone) {
    put("");
    printIt();
    ASSERT_EQ(pages().size(), 1);
    EXPECT_TRUE(words().isEmpty());
    // As many lines as there is room for, each with a line end.
    put(numberedLines(200));
    printIt();
    const auto lines = static_cast<int>(pages().first().words.size());
    put(numberedLines(lines));
    printIt();
    EXPECT_EQ(pages().size(), 1);
}

TEST_P(PrintingOfBoth, WithoutRoomOrOnCancelLeavesTheFileAlone) {
    put("abc");
    const auto overwrite = [this] {
        writeBytes("a.pdf", "old");
        const Answer overwrites(QMessageBox::Yes);
        answerPrintDialog(pdf());
        call(m_document, "Imprimir");
    };
    setMargins(30000, 0, 0, 0);
    overwrite();
    EXPECT_EQ(fileBytes("a.pdf"), "old");
    EXPECT_EQ(statusMessage(), QStringLiteral("Not printed: the margins fill the page."));
    whenModal("QPrintDialog", [](QWidget *dialog) { dialog->close(); });
    call(m_document, "Imprimir");
    EXPECT_TRUE(waitFor([this] { return pane().hasFocus(); }));
    setMargins(0, 0, 0, 0);
    overwrite();
    EXPECT_EQ(fileBytes("a.pdf").substr(0, 5), "%PDF-");
}

TEST_P(PrintingOfBoth, CancelEndsALongJob) {
    put(numberedLines(30'000));
    bool came = false;
    QTimer poll;
    poll.callOnTimeout([&] {
        WaitFrm *wait = loaded<WaitFrm>();
        if (!wait || !wait->isVisible())
            return;
        came = true;
        poll.stop();
        EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
        EXPECT_FALSE(loaded<MDIFrm>()->close());
        EXPECT_EQ(control<QLabel>(wait, "Label1")->text(), QStringLiteral("Printing..."));
        press(wait, "Command1");
    });
    poll.start(1);
    printIt();
    EXPECT_TRUE(came);
    EXPECT_EQ(fileBytes("a.pdf"), "");
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_EQ(loaded<WaitFrm>(), nullptr);
    EXPECT_TRUE(waitFor([this] { return pane().hasFocus(); }));
    // The next one isn't cancelled.
    put("abc");
    printIt();
    EXPECT_EQ(words(), QStringList{QStringLiteral("abc")});
}

TEST_P(PrintingOfBoth, StandsOnTheKeyAndOnTheToolbar) {
    put("abc");
    int asked = 0;
    const auto expectDialog = [&](const std::function<void()> &command) {
        whenModal("QPrintDialog", [&](QWidget *dialog) {
            ++asked;
            dialog->close();
        });
        command();
    };
    expectDialog([&] { QTest::keyClick(&pane().control(), Qt::Key_P, Qt::ControlModifier); });
    expectDialog([&] {
        QToolBar *bar = loaded<MDIFrm>()->toolbar(GetParam() == 1 ? 2 : 4);
        QTest::mouseClick(control<QToolButton>(bar, "Imprimir"), Qt::LeftButton);
    });
    EXPECT_EQ(asked, 2);
}

INSTANTIATE_TEST_SUITE_P(In, PrintingOfBoth, testing::Values(1, 2));

class TextPrinting : public Printing {
protected:
    TextPrinting() : Printing(1) {}
};

TEST_F(TextPrinting, HasThePanesLook) {
    put("0123456789");
    shared::settings.TFntSize = 20;
    m_document->fontChosen();
    printIt();
    EXPECT_NEAR(pages().first().words.first().place.width(), 10 * 20 * kColumn, 0.5);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("ZOLT +\\S+ .*yes +(yes|no) +yes"))
                    .match(QString::fromStdString(fonts()))
                    .hasMatch())
        << fonts();
    const auto hasColour = [this](QRgb wanted) {
        const QImage page = dots(72);
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (page.pixel(x, y) == wanted)
                    return true;
        return false;
    };
    EXPECT_TRUE(hasColour(qRgb(0, 0, 0)));
    shared::settings.TFntColr = "255";
    printIt();
    EXPECT_TRUE(hasColour(qRgb(255, 0, 0)));
    EXPECT_FALSE(hasColour(qRgb(0, 0, 0)));
}

TEST_F(TextPrinting, PrintsTheNormalPreviewAsCompiled) {
    put(withMarks("plain @Bheavy@B\r\n#FFFFFF#FFFFFF\r\n"));
    call(m_document, "MnuVerPrévisualizartudoNormal");
    auto *preview = loaded<EditTextPreviewNormalFrm>();
    answerPrintDialog(pdf());
    auto *bar = control<QToolBar>(preview, "Toolbar1");
    QTest::mouseClick(control<QToolButton>(bar, "Print"), Qt::LeftButton);
    EXPECT_EQ(words(), QStringList({QStringLiteral("plain"), QStringLiteral("heavy")}));
    EXPECT_NE(fonts().find("ZOLTBold"), std::string::npos);
    EXPECT_NE(outputOf("pdfimages -list " + pdf()).find("image"), std::string::npos);
    EXPECT_TRUE(preview->isEnabled());
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    EXPECT_TRUE(waitFor([&] { return preview->text().hasFocus(); }));
}

class GraphPrinting : public Printing {
protected:
    GraphPrinting() : Printing(2) {}

    static RichPicture pictureOf(const QImage &image) {
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        return {RichPicture::Kind::Png, png.toStdString(), image.width() * 15, image.height() * 15};
    }
    /// The document becomes this picture alone.
    void putPicture(const QImage &image) {
        RichTextBuilder builder;
        builder.append(pictureOf(image), {});
        static_cast<RichTextBox &>(pane()).setRichText(builder.text());
    }
};

TEST_F(GraphPrinting, KeepsPicturesDotForDot) {
    QImage image(33, 17, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, (x * y + x) % 3 ? qRgb(255, 255, 255) : qRgb(0, 0, x % 2 * 255));
    putPicture(image);
    setMargins(1440, 1440, 0, 0);
    printIt();
    // 15 twips a pixel are one of 1/96 inch. Enlarged so much that no reader blurs it by
    // itself, each is a square of one colour.
    constexpr int kZoom = 5;
    const QImage shown = dots(kZoom * 96, QRect(kZoom * QPoint(96, 96), kZoom * image.size()));
    EXPECT_EQ(shown, image.scaled(shown.size()));

    // What's wider than the page is made smaller.
    image = QImage(3000, 100, QImage::Format_RGB32);
    image.fill(Qt::black);
    putPicture(image);
    setMargins(1440, 1440, 1440, 0);
    printIt();
    const QImage small = dots(72);
    int left = small.width();
    int right = 0;
    for (int x = 0; x < small.width(); ++x)
        if (qGray(small.pixel(x, 74)) < 128) {
            left = std::min(left, x);
            right = x;
        }
    EXPECT_NEAR(left, 72, 1);
    EXPECT_NEAR(right, small.width() - 72, 1);
}

TEST_F(GraphPrinting, PrintsFontsAndSizes) {
    RichTextBuilder builder;
    builder.append("plain ", {});
    builder.append("bigger", {.font = builder.text().fontIndex("ZOLTBold"), .halfPoints = 40});
    static_cast<RichTextBox &>(pane()).setRichText(builder.text());
    printIt();
    EXPECT_EQ(words(), QStringList({QStringLiteral("plain"), QStringLiteral("bigger")}));
    EXPECT_NEAR(pages().first().words.last().place.width(), 6 * 20 * kColumn, 0.5);
    EXPECT_NE(fonts().find("ZOLTBold"), std::string::npos);
}

class PageSetup : public TextEditionTest {
protected:
    ~PageSetup() override { QLocale::setDefault(QLocale::system()); }

    EditPageSetupFrm &open() {
        m_window->menuItem("MnuFicheiroConfigurarpágina")->trigger();
        return *loaded<EditPageSetupFrm>();
    }
    /// The margins in the window: top, bottom, left, right.
    QStringList shown() {
        QStringList texts;
        for (const char *box : {"Text1", "Text3", "Text2", "Text4"})
            texts << control<QLineEdit>(loaded<EditPageSetupFrm>(), box)->text();
        return texts;
    }
    static void type(const char *box, const QString &text) {
        auto *line = control<QLineEdit>(loaded<EditPageSetupFrm>(), box);
        line->selectAll();
        QTest::keyClicks(line, text);
    }
    static std::array<int, 4> stored() {
        const Settings &settings = shared::settings;
        return {settings.PgStpTop, settings.PgStpBot, settings.PgStpLft, settings.PgStpRgt};
    }
};

TEST_F(PageSetup, ReadsAndShowsMarginsInTheDesktopsWay) {
    for (const char *locale : {"pt_PT", "de_DE", "en_US"}) {
        SCOPED_TRACE(locale);
        QLocale::setDefault(QLocale(QString::fromUtf8(locale)));
        const QString sign = QLocale().decimalPoint();
        open();
        EXPECT_EQ(shown().join(u' '), QStringLiteral("2%1 2%1 3 3").arg(sign + u'5'));
        type("Text1", QStringLiteral("2%1").arg(sign + QStringLiteral("55")));
        type("Text3", QStringLiteral("1,5"));
        type("Text2", QStringLiteral("1.5"));
        type("Text4", QStringLiteral(" 0 "));
        press(loaded<EditPageSetupFrm>(), "Command1");
        EXPECT_EQ(loaded<EditPageSetupFrm>(), nullptr);
        EXPECT_EQ(stored(), (std::array{1469, 864, 864, 0}));
        open();
        EXPECT_EQ(shown().join(u' '), QStringLiteral("2S6 1S5 1S5 0").replace(u'S', sign));
        press(loaded<EditPageSetupFrm>(), "Command3");
        EXPECT_EQ(shown().join(u' '), QStringLiteral("2,5 2,5 3 3"));
        EXPECT_EQ(stored(), (std::array{1469, 864, 864, 0}));
        press(loaded<EditPageSetupFrm>(), "Command1");
        EXPECT_EQ(stored(), (std::array{1440, 1440, 1728, 1728}));
    }
}

TEST_F(PageSetup, RoundsTiesToTheEvenNeighbour) {
    open();
    type("Text1", QStringLiteral("0.0390625")); // 22.5 twips
    type("Text3", QStringLiteral("0.0234375")); // 13.5
    press(loaded<EditPageSetupFrm>(), "Command1");
    EXPECT_EQ(stored(), (std::array{22, 14, 1728, 1728}));
}

TEST_F(PageSetup, RefusesWhatIsNoMarginAndKeepsThoseInFrontOfIt) {
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    open();
    for (const char *wrong : {"60", "", "x", "2,500", "1.2.3", "inf", "nan", "56.889"}) {
        SCOPED_TRACE(wrong);
        shared::settings.PgStpTop = shared::settings.PgStpLft = 0;
        type("Text1", QStringLiteral("1"));
        type("Text3", QString::fromUtf8(wrong));
        if (!*wrong)
            control<QLineEdit>(loaded<EditPageSetupFrm>(), "Text3")->clear();
        const Answer box(QMessageBox::Ok);
        QTest::keyClick(loaded<EditPageSetupFrm>(), Qt::Key_Return);
        EXPECT_EQ(box.text(), QStringLiteral("Incorrect format"));
        EXPECT_TRUE(loaded<EditPageSetupFrm>()->isVisible());
        EXPECT_EQ(stored(), (std::array{576, 1440, 0, 1728}));
    }
    type("Text3", QStringLiteral("56.888")); // 32767.488 twips
    press(loaded<EditPageSetupFrm>(), "Command1");
    EXPECT_EQ(shared::settings.PgStpBot, 32767);
}

TEST_F(PageSetup, ChoosesTheOrientationByMouseAndKeysAtOnce) {
    EditPageSetupFrm &window = open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
    auto *portrait = control<QWidget>(&window, "Picture1");
    auto *landscape = control<QWidget>(&window, "Picture2");
    const auto look = [](QWidget *picture) { return picture->grab().toImage(); };
    const QImage unchosen = look(landscape);
    QTest::mouseClick(landscape, Qt::LeftButton);
    EXPECT_EQ(shared::settings.PgStpOrn, 2);
    EXPECT_NE(look(landscape), unchosen);
    const QImage chosen = look(landscape);
    EXPECT_TRUE(waitFor([&] { return landscape->hasFocus(); }));
    QTest::keyClick(landscape, Qt::Key_Left);
    EXPECT_EQ(shared::settings.PgStpOrn, 1);
    EXPECT_EQ(look(landscape), unchosen);
    EXPECT_NE(look(portrait), chosen);
    QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(waitFor([] { return shared::settings.PgStpOrn == 2; }));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(loaded<EditPageSetupFrm>(), nullptr);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
    EXPECT_TRUE(waitFor([this] { return pane().hasFocus(); }));
    // Cancel keeps the orientation; Default chooses portrait.
    EXPECT_EQ(shared::settings.PgStpOrn, 2);
    press(&open(), "Command3");
    EXPECT_EQ(shared::settings.PgStpOrn, 1);
}

} // namespace
} // namespace zolt
