#include "platform/cls_style.h"

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <utility>

namespace zolt {
namespace {

struct Property {
    const char *name;
    bool (clsStyle::*read)() const;
    bool (clsStyle::*write)(bool);
};

constexpr Property kProperties[] = {
    {"ControlBox", &clsStyle::ControlBox, &clsStyle::setControlBox},
    {"Sizable", &clsStyle::Sizable, &clsStyle::setSizable},
    {"ToolWindow", &clsStyle::ToolWindow, &clsStyle::setToolWindow},
    {"TopMost", &clsStyle::TopMost, &clsStyle::setTopMost},
};

TEST(ClsStyle, ChangesAWindowWithoutMovingItOrTakingItsFocus) {
    for (const bool shown : {false, true}) {
        QDialog window;
        auto *column = new QVBoxLayout(&window);
        for (int i = 0; i < 2; ++i)
            column->addWidget(new QLineEdit);
        auto *box = qobject_cast<QLineEdit *>(column->itemAt(1)->widget());
        box->setFocus();
        window.move(120, 80);
        window.setVisible(shown);
        ASSERT_TRUE(!shown || QTest::qWaitForWindowActive(&window));
        const WId native = window.internalWinId();
        clsStyle style;
        style.setClient(&window);
        for (const auto &[name, read, write] : kProperties) {
            SCOPED_TRACE(name);
            const bool before = (style.*read)();
            for (const bool on : {!before, !before, before}) {
                bool others[std::size(kProperties)];
                for (std::size_t i = 0; i < std::size(kProperties); ++i)
                    others[i] = (style.*kProperties[i].read)();
                EXPECT_TRUE((style.*write)(on));
                EXPECT_EQ((style.*read)(), on);
                for (std::size_t i = 0; i < std::size(kProperties); ++i)
                    EXPECT_TRUE(kProperties[i].read == read || (style.*kProperties[i].read)() == others[i])
                        << kProperties[i].name;
                EXPECT_EQ(window.isVisible(), shown);
                EXPECT_EQ(window.pos(), QPoint(120, 80));
                EXPECT_EQ(window.focusWidget(), box);
                EXPECT_EQ(window.internalWinId(), native) << "hidden and shown again";
            }
        }
    }
}

TEST(ClsStyle, AWindowThatIsNotSizableHasOneSize) {
    QWidget bare;
    QDialog laidOut;
    (new QVBoxLayout(&laidOut))->addWidget(new QLineEdit);
    clsStyle style;
    for (QWidget *window : std::initializer_list<QWidget *>{&bare, &laidOut}) {
        style.setClient(window);
        window->resize(300, 200);
        window->show();
        style.setSizable(false);
        QCoreApplication::processEvents();
        const QSize fixed = window->size();
        EXPECT_EQ(fixed, window == &bare ? QSize(300, 200) : laidOut.sizeHint());
        window->resize(400, 300);
        EXPECT_EQ(window->size(), fixed);
        style.setSizable(true);
        window->resize(400, 300);
        EXPECT_EQ(window->size(), QSize(400, 300));
    }
}

TEST(ClsStyle, WithoutAClientNothingHappens) {
    clsStyle style;
    {
        QWidget gone;
        style.setClient(&gone);
        EXPECT_EQ(style.Client(), &gone);
    }
    EXPECT_EQ(style.Client(), nullptr);
    for (const Property &property : kProperties) {
        EXPECT_FALSE((style.*property.read)()) << property.name;
        EXPECT_FALSE((style.*property.write)(true)) << property.name;
    }
}

} // namespace
} // namespace zolt
