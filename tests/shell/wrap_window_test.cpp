#include "shell/preview/wait_frm.h"
#include "support/program.h"

#include <QAction>
#include <QPushButton>
#include <QTimer>

namespace zolt {
namespace {

using namespace test;

// 33 columns are one line of the calculator.
const std::string kLong = "one two three four five six seven eight nine ten eleven";
const std::string kWrapped = "one two three four five six \r\nseven eight nine ten eleven";

class WrapCommand : public TextEditionTest {
protected:
    /// Makes the document this text, selects a part of it and wraps.
    void wrap(const std::string &text, qsizetype start, qsizetype length, const char *item = "WrapAtWords") {
        pane().setText(text);
        pane().setSelStart(start);
        pane().setSelLength(length);
        choose(item);
    }
    void choose(const char *item) {
        m_window->menuItem((std::string("MnuFerramentas") + item).c_str())->trigger();
    }
    std::pair<qsizetype, qsizetype> selection() { return {pane().SelStart(), pane().SelLength()}; }
};

TEST_F(WrapCommand, WrapsTheDocumentInOneStepAndTheCaretStaysAtItsWord) {
    const std::string text = "head\r\n" + kLong + "\r\n\r\n" + kLong;
    const auto caret = static_cast<qsizetype>(text.rfind("ten"));
    wrap(text, caret, 0);
    const std::string wrapped = "head\r\n" + kWrapped + "\r\n\r\n" + kWrapped;
    EXPECT_EQ(pane().Text(), wrapped);
    EXPECT_EQ(selection(), std::pair(static_cast<qsizetype>(wrapped.rfind("ten")), qsizetype{0}));
    call(m_window, "EditarAnularintrodução");
    EXPECT_EQ(pane().Text(), text);
    EXPECT_EQ(selection(), std::pair(caret, qsizetype{0}));
    // Nothing to wrap is no step of undo, and the beginning of a line stays one.
    wrap(wrapped, 6, 0);
    EXPECT_FALSE(pane().canUndoToggle());
    wrap(text, static_cast<qsizetype>(text.rfind("one")), 0);
    EXPECT_EQ(selection().first, static_cast<qsizetype>(wrapped.rfind("one")));
    choose("WrapReflow");
    EXPECT_EQ(pane().Text(), wrapped);
}

TEST_F(WrapCommand, WrapsTheLinesThatTheSelectionTouchesInBothPanes) {
    for (const int number : {1, 2}) {
        EXPECT_EQ(&pane(), &m_window->textPane(number));
        const std::string text = kLong + "\r\n" + kLong + "\r\n" + kLong;
        const auto second = static_cast<qsizetype>(kLong.size()) + 2;
        wrap(text, second + 4, 30); // from "two" into "seven"
        EXPECT_EQ(pane().Text(), kLong + "\r\n" + kWrapped + "\r\n" + kLong);
        EXPECT_EQ(selection(), std::pair(second + 4, qsizetype{32}));
        EXPECT_EQ(pane().SelText(), "two three four five six \r\nseven ");
        call(m_window, "EditarTranslinearpalavras");
    }
    // A wrap that was edited: its lines flow anew.
    wrap("one two three \r\nfour five six seven eight nine", 0, 0, "WrapReflow");
    EXPECT_EQ(pane().Text(), "one two three four five six \r\nseven eight nine");
}

TEST_F(WrapCommand, LongWorkCanBeCancelled) {
    std::string text;
    while (text.size() < 4000000)
        text += kLong + "\r\n";
    pane().setText(text);
    QTimer cancel;
    bool cancelled = false;
    QObject::connect(&cancel, &QTimer::timeout, [&] {
        auto *wait = loaded<WaitFrm>();
        if (!wait || !wait->isVisible())
            return;
        EXPECT_FALSE(loaded<MDIFrm>()->isEnabled());
        cancelled = true;
        cancel.stop();
        press(wait, "Command1");
    });
    cancel.start(0);
    choose("WrapAtWords");
    EXPECT_TRUE(cancelled);
    EXPECT_EQ(pane().Text(), text);
    EXPECT_TRUE(loaded<MDIFrm>()->isEnabled());
}

} // namespace
} // namespace zolt
