#include "platform/fonts.h"
#include "platform/pane_look.h"
#include "platform/program_folder.h"
#include "platform/shown.h"
#include "platform/text_pane.h"
#include "support/contrast.h"
#include "support/texts.h"

#include <QImage>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <gtest/gtest.h>
#include <set>

using zolt::PaneShows;
using zolt::TextPane;
using zolt::test::withMarks;

namespace {

constexpr PaneShows kAll{.styles = true, .pictures = true, .limit = true};
/// Of the font ZOLT in 10 points, in pixels; a dot is 2 by 2.
constexpr int kColumn = 8;
constexpr int kLine = 12;

QImage grab(QPlainTextEdit &pane) {
    return pane.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// A pane in the calculator's font, black on white, with the caret in an empty last line.
struct LookPane : zolt::test::Shown<TextPane> {
    LookPane(const std::string &text, const PaneShows &shows, bool wraps = false)
        : Shown<TextPane>(withMarks(text) + "\r\n", wraps) {
        EXPECT_TRUE(zolt::loadFonts(zolt::installedDataFolder() + "/fonts"));
        box.setPaneFont(zolt::zoltFont(QStringLiteral("ZOLT"), 10));
        box.setColours(Qt::black, Qt::white);
        box.setFrameShape(QFrame::NoFrame);
        box.resize(400, 200);
        box.setShows(shows);
        box.setSelStart(box.length());
        QApplication::processEvents();
    }
    /// What stands in a stretch of a line, all counted from 0.
    QImage cut(int line, int column, int columns) {
        const auto margin = static_cast<int>(box.document()->documentMargin());
        return grab(box).copy(margin + column * kColumn, margin + line * kLine, columns * kColumn, kLine);
    }
};

/// The colours other than the background.
std::set<QRgb> inks(const QImage &image) {
    std::set<QRgb> inks;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            inks.insert(image.pixel(x, y));
    inks.erase(0xFFFFFFFF);
    return inks;
}

/// Pixels that are painted when the event loop comes to it.
class Painted : public QObject {
public:
    explicit Painted(QWidget *widget) { widget->installEventFilter(this); }
    QRegion region() {
        m_region = {};
        QApplication::processEvents();
        return m_region;
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

private:
    QRegion m_region;
};

const char *const kSample = "plain @Bbold@B, @Ulone\r\n"
                            "#F99F00#0000F0#123456\r\n"
                            "@Ddouble@D, 0123456789012345678901234567890";

/// Long lines between short ones, with characters of several fonts.
std::string longLines() {
    std::string text = "first\r\n";
    for (int line = 0; line < 4; ++line) {
        for (int word = 0; word < 300; ++word)
            text += std::to_string(word * line) + (word % 3 ? " \x8D\xE9 " : "@B");
        text += "\r\nshort, then empty\r\n\r\n";
    }
    return text;
}

class TextPaneBesideTheToolkit : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Of, TextPaneBesideTheToolkit, testing::Values(kSample, longLines()));

TEST_P(TextPaneBesideTheToolkit, LooksTheSameWhereNothingShows) {
    LookPane pane(GetParam(), {});
    pane.box.setCursorWidth(0);
    QPlainTextEdit plain;
    plain.setCursorWidth(0);
    plain.setFrameShape(QFrame::NoFrame);
    plain.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    plain.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    plain.setLineWrapMode(QPlainTextEdit::NoWrap);
    plain.setPalette(pane.box.palette());
    plain.setFont(pane.box.font());
    plain.setPlainText(pane.box.toPlainText());
    plain.resize(pane.box.size());
    plain.show();
    for (const int scrolled : {0, 701, 3003}) {
        for (QPlainTextEdit *edit : {&plain, static_cast<QPlainTextEdit *>(&pane.box)}) {
            QTextCursor cursor = edit->textCursor();
            cursor.setPosition(5);
            cursor.setPosition(std::min(1900, edit->document()->characterCount() - 1),
                               QTextCursor::KeepAnchor);
            edit->setTextCursor(cursor);
            edit->horizontalScrollBar()->setValue(scrolled);
        }
        EXPECT_EQ(grab(pane.box), grab(plain)) << scrolled;
    }
    const QImage expected = grab(plain);
    pane.box.setShows(kAll);
    EXPECT_NE(grab(pane.box), expected);
    pane.box.setShows({});
    EXPECT_EQ(grab(pane.box), expected);
}

TEST(TextPaneLook, GivesRunsTheirFontAndCodesTheirColour) {
    LookPane pane(kSample, {.styles = true});
    LookPane bold(kSample, {});
    bold.box.setPaneFont(zolt::zoltFont(QStringLiteral("ZOLTBold"), 10));
    LookPane plain(kSample, {});
    EXPECT_EQ(pane.cut(0, 0, 6), plain.cut(0, 0, 6));
    EXPECT_EQ(pane.cut(0, 8, 4), bold.cut(0, 8, 4));
    EXPECT_EQ(pane.cut(0, 18, 4), plain.cut(0, 18, 4)) << "without a partner";
    EXPECT_EQ(pane.cut(1, 0, 21), plain.cut(1, 0, 21));

    const QPair<QColor, QColor> grounds[] = {
        {Qt::black, Qt::white}, {0x80FF80, Qt::black}, {Qt::white, 0x303030}};
    for (const auto &[text, background] : grounds) {
        pane.box.setColours(text, background);
        const auto ink = [&, ground = background](int column) {
            std::set<QRgb> found = inks(pane.cut(0, column, 2));
            found.erase(ground.rgb());
            return found;
        };
        ASSERT_EQ(ink(6).size(), 1u);
        ASSERT_EQ(ink(12).size() + ink(16).size(), 2u);
        const QColor dim(*ink(6).begin());
        const QColor warning(*ink(16).begin());
        EXPECT_LT(zolt::test::contrast(dim, background), zolt::test::contrast(text, background));
        EXPECT_GT(zolt::test::contrast(dim, background), 2);
        EXPECT_GT(zolt::test::contrast(warning, background), 4.5);
        EXPECT_GT(warning.red(), warning.green() + 60);
    }
}

TEST(TextPaneLook, FollowsACodeInAllThatIsSeen) {
    LookPane pane("one\r\n@Btwo\r\nthree", {.styles = true});
    LookPane bold("one\r\n@Btwo\r\nthree", {});
    bold.box.setPaneFont(zolt::zoltFont(QStringLiteral("ZOLTBold"), 10));
    EXPECT_NE(pane.cut(2, 0, 5), bold.cut(2, 0, 5));
    Painted painted(pane.box.viewport());
    painted.region();
    pane.box.setSelText(withMarks("@B"));
    EXPECT_TRUE(painted.region().contains(pane.box.viewport()->rect().center()));
    EXPECT_EQ(pane.cut(1, 2, 3), bold.cut(1, 2, 3));
    EXPECT_EQ(pane.cut(2, 0, 5), bold.cut(2, 0, 5));
    pane.box.undo();
    EXPECT_TRUE(painted.region().contains(pane.box.viewport()->rect().center()));
    EXPECT_NE(pane.cut(2, 0, 5), bold.cut(2, 0, 5));
}

TEST(TextPaneLook, IsNoChangeOfTheDocument) {
    LookPane pane("@Bbold@B #123456\r\na\rx\nb\r\n@Ulone", kAll);
    const std::string before = pane.box.Text();
    grab(pane.box);
    // What has been painted meanwhile belongs to no edit.
    pane.select(static_cast<qsizetype>(before.find("x\nb")), 1);
    grab(pane.box);
    pane.key(Qt::Key_Delete);
    EXPECT_EQ(pane.box.blockCount(), 5) << "CR and LF come together";
    pane.box.undo();
    EXPECT_EQ(pane.box.Text(), before);
    EXPECT_EQ(pane.box.SelText(), "x");
    EXPECT_FALSE(pane.box.document()->isUndoAvailable());
}

TEST(TextPaneLook, ShowsTheDotsOfCellsThatAreNotInUse) {
    LookPane pane("ab#F99F00#0000F1cd\r\n  #123456", {.pictures = true});
    LookPane plain("ab#F99F00#0000F1cd\r\n  #123456", {});
    QImage cells = pane.cut(0, 2, 14);
    const char *const dots[] = {"####....", "#..#....", "#..#....", "####....", "....####", "....#..."};
    for (int y = 0; y < cells.height(); ++y)
        for (int x = 0; x < cells.width(); ++x)
            ASSERT_EQ(cells.pixelColor(x, y) == Qt::black, x / 2 < 8 && dots[y / 2][x / 2] == '#')
                << x << ", " << y;
    EXPECT_EQ(pane.cut(0, 0, 2), plain.cut(0, 0, 2));
    EXPECT_EQ(pane.cut(0, 16, 2), plain.cut(0, 16, 2));

    const struct {
        qsizetype start, length;
        bool inUse;
    } cases[] = {{1, 0, false},  {2, 0, true}, {5, 0, true},  {16, 0, true},
                 {17, 0, false}, {0, 3, true}, {16, 3, true}, {0, 40, true}};
    Painted painted(pane.box.viewport());
    for (const auto &c : cases) {
        pane.box.setSelStart(pane.box.length());
        painted.region();
        pane.select(c.start, c.length);
        EXPECT_TRUE(painted.region().contains(pane.box.viewport()->rect().center())) << c.start;
        pane.box.setSelStart(c.start);
        pane.box.setSelLength(c.length);
        EXPECT_EQ(inks(pane.cut(0, 9, 6)).empty(), !c.inUse) << c.start << ", " << c.length;
    }
}

TEST(TextPaneLook, ShowsAPictureWholeWhereItsRowsAreWrapped) {
    // Each row takes two display lines: the last cell stands behind the first seven.
    const std::string row = "#F99F00#0000F1#F99F00#0000F1#F99F00#0000F1#F99F00#FFFFFF";
    LookPane pane("above\r\n" + row + "\r\n" + row + "\r\nbelow", {.pictures = true}, true);
    EXPECT_EQ(pane.box.lineOfOffset(pane.box.length()), 6);
    EXPECT_FALSE(inks(pane.cut(1, 7, 1)).empty());
    EXPECT_EQ(pane.cut(1, 0, 9), pane.cut(2, 0, 9));
    for (const int line : {3, 4})
        EXPECT_TRUE(inks(pane.cut(line, 0, 40)).empty()) << line;
    // The caret in one row makes characters of both; a part alone is painted alike.
    pane.box.setSelStart(10);
    for (const int line : {3, 4})
        EXPECT_FALSE(inks(pane.cut(line, 0, 40)).empty()) << line;
    pane.box.setSelStart(pane.box.length());
    QImage upper(400, 200, QImage::Format_RGB32);
    upper.fill(Qt::white);
    pane.box.viewport()->render(&upper, {}, QRegion(0, 0, 400, 3 * kLine));
    EXPECT_EQ(upper.copy(0, 0, 300, 3 * kLine), grab(pane.box).copy(0, 0, 300, 3 * kLine));
}

TEST(TextPaneLook, ShowsWhereTheCalculatorBreaksALine) {
    const std::string text = std::string(40, ' ') + "\r\n@B@B\r\n@D  \r\n#000000#000000\r\n ";
    LookPane pane(text, {.limit = true});
    // The columns in front of which the limit stands.
    const std::vector<int> expected[] = {{33}, {37}, {18}, {}, {33}};
    for (int line = 0; line < static_cast<int>(std::size(expected)); ++line) {
        std::vector<int> limits;
        const QImage image = pane.cut(line, 0, 48);
        for (int column = 0; column < 48; ++column)
            if (image.pixel(column * kColumn, 0) != 0xFFFFFFFF &&
                image.pixel(column * kColumn, kLine - 1) != 0xFFFFFFFF &&
                image.pixel(column * kColumn + 1, 0) == 0xFFFFFFFF)
                limits.push_back(column);
        EXPECT_EQ(limits, expected[line]) << "line " << line;
    }
}

TEST(TextPaneLook, LetsTheCaretBeSeenBehindWideText) {
    LookPane pane("@D" + std::string(40, 'w') + "@D", {.styles = true});
    pane.box.setSelStart(0);
    pane.key(Qt::Key_End);
    EXPECT_TRUE(pane.box.viewport()->rect().contains(pane.box.cursorRect()));
    EXPECT_GT(pane.box.horizontalScrollBar()->value(), 40 * 2 * kColumn - 400);
}

} // namespace
