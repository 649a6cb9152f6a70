#include "platform/views/NSButtonCell.h"

#include "tests/support/HostTextView.h"

#include <gtest/gtest.h>

namespace {

constexpr NSRect kFrame{{10, 10}, {20, 18}};
constexpr NSPoint kInside{15, 15};
constexpr NSPoint kOutside{35, 15};

constexpr auto kDown = NSEventType::LeftMouseDown;
constexpr auto kDragged = NSEventType::LeftMouseDragged;
constexpr auto kUp = NSEventType::LeftMouseUp;

struct TrackedButton : testing::Test {
    TrackedButton()
    {
        button.setButtonType(NSButtonType::Switch);
        button.setAction([this] { ++clickCount; });
    }

    bool press(bool untilMouseUp)
    {
        return button.trackMouse(HostTextView::event(kDown, kInside), kFrame, view, untilMouseUp);
    }

    HostTextView view{{100, 100}};
    NSButtonCell button;
    int clickCount = 0;
};

} // namespace

TEST_F(TrackedButton, IsClickedByPressAndReleaseWithin)
{
    view.addEvent(kUp, kInside);
    EXPECT_TRUE(press(true));
    EXPECT_EQ(button.state(), NSControlStateValueOn);
    EXPECT_EQ(clickCount, 1);
}

TEST_F(TrackedButton, IsNotClickedByAReleaseOutside)
{
    view.addEvent(kDragged, kOutside);
    view.addEvent(kUp, kOutside);
    EXPECT_FALSE(press(true));
    EXPECT_EQ(button.state(), NSControlStateValueOff);
    EXPECT_EQ(clickCount, 0);
}

TEST_F(TrackedButton, IsClickedWhenTheMouseCameBack)
{
    view.addEvent(kDragged, kOutside);
    view.addEvent(kDragged, kInside);
    view.addEvent(kUp, kInside);
    EXPECT_TRUE(press(true));
}

TEST_F(TrackedButton, EndsWhereTheMouseLeavesUnlessItIsFollowed)
{
    view.addEvent(kDragged, kOutside);
    view.addEvent(kUp, kInside);
    EXPECT_FALSE(press(false));
    EXPECT_EQ(view.eventCount(), 1U) << "the release is left for others";
    EXPECT_EQ(clickCount, 0);
}

TEST_F(TrackedButton, IsNotClickedWhenNoMoreEventsCome)
{
    EXPECT_FALSE(press(true));
    EXPECT_FALSE(button.isHighlighted());
}

TEST_F(TrackedButton, IsShownPressedWhileTheMouseIsWithin)
{
    view.addEvent(kUp, kInside);
    (void)press(true);
    EXPECT_FALSE(button.isHighlighted());
    EXPECT_EQ(view.displayCount(), 2) << "pressed and released";
}

TEST(NSButtonCell, KeepsNoStateUnlessItsTypeDoes)
{
    NSButtonCell button;
    button.performClick();
    EXPECT_EQ(button.state(), NSControlStateValueOff);
    button.setButtonType(NSButtonType::Switch);
    button.performClick();
    EXPECT_EQ(button.state(), NSControlStateValueOn);
    button.performClick();
    EXPECT_EQ(button.state(), NSControlStateValueOff);
}

TEST(NSButtonCell, HasThePlatformsNumbers)
{
    EXPECT_EQ(static_cast<int>(NSButtonType::Switch), 3);
    EXPECT_EQ(static_cast<int>(NSCellImagePosition::NoImage), 0);
    EXPECT_EQ(NSControlStateValueOff, 0);
    EXPECT_EQ(NSControlStateValueOn, 1);
}
