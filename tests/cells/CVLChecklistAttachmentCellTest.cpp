#include "cells/CVLChecklistAttachmentCell.h"

#include "cells/ChecklistIndentation.h"
#include "paragraphs/FontMetrics.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSTextAttachment.h"
#include "tests/support/HostTextView.h"
#include "tests/support/KeyedValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

class IndentedAttachment final : public NSTextAttachment, public ChecklistIndentation {
public:
    explicit IndentedAttachment(NSUInteger level)
        : m_level(level)
    {
    }

    [[nodiscard]] NSUInteger indentationLevel() const override { return m_level; }

private:
    NSUInteger m_level;
};

NSRect frameInText(CVLChecklistAttachmentCell& cell, const NSAttributedString& text, NSUInteger index)
{
    return cell.cellFrameForTextContainer(NSTextContainer({500, 500}, &text), {}, {}, index);
}

NSAttributedString textInFont(const NSFont::Ref& font)
{
    return NSAttributedString(u"\uFFFC item", {{std::u16string(NSFontAttributeName), font}});
}

/// Notes what it is told.
class Delegate final : public NSTextViewDelegate {
public:
    void textView(NSTextView& /*textView*/, NSTextAttachmentCell& clickedOnCell, NSRect inRect,
                  NSUInteger atIndex) override
    {
        cell = &clickedOnCell;
        rect = inRect;
        index = atIndex;
        ++count;
    }

    NSTextAttachmentCell* cell = nullptr;
    NSRect rect;
    NSUInteger index = 0;
    int count = 0;
};

// A cell two levels deep: the box takes the last 20 of its 60 points.
constexpr NSRect kFrame{{10, 50}, {60, 18}};
constexpr NSPoint kInBox{55, 60};
constexpr NSPoint kInIndent{30, 60};

struct ClickedCell : testing::Test {
    ClickedCell() { view.setDelegate(&delegate); }

    bool press(NSPoint point)
    {
        return cell.trackMouse(HostTextView::event(NSEventType::LeftMouseDown, point), kFrame, view, 7, true);
    }

    Delegate delegate;
    HostTextView view{{500, 500}};
    CVLChecklistAttachmentCell cell;
};

} // namespace

TEST(CVLChecklistAttachmentCell, IsOffAtFirst)
{
    CVLChecklistAttachmentCell cell;
    EXPECT_FALSE(cell.isOn());
    EXPECT_EQ(cell.buttonCell().state(), NSControlStateValueOff);
}

TEST(CVLChecklistAttachmentCell, SetsItsButton)
{
    CVLChecklistAttachmentCell cell;
    auto& button = cell.buttonCell();
    EXPECT_EQ(button.buttonType(), NSButtonType::Switch);
    EXPECT_EQ(button.imagePosition(), NSCellImagePosition::NoImage);
    EXPECT_EQ(button.title(), u"");
    cell.setOn(true);
    EXPECT_EQ(button.state(), NSControlStateValueOn);
    cell.setOn(false);
    EXPECT_EQ(button.state(), NSControlStateValueOff);
}

TEST(CVLChecklistAttachmentCell, TakesTheStateOfTheClickedButton)
{
    CVLChecklistAttachmentCell cell;
    cell.buttonCell().performClick();
    EXPECT_TRUE(cell.isOn());
    cell.buttonCell().performClick();
    EXPECT_FALSE(cell.isOn());
}

TEST(CVLChecklistAttachmentCell, IsOfItsButtonsSize)
{
    EXPECT_EQ(CVLChecklistAttachmentCell().cellSize(), (NSSize{20, 18}));
}

TEST(CVLChecklistAttachmentCell, HasItsButtonAtTheRightEdge)
{
    CVLChecklistAttachmentCell cell;
    const HostTextView view({500, 500});
    EXPECT_EQ(cell.buttonFrameWithFrame({{10, 50}, {80, 18}}, view), (NSRect{{70, 50}, {20, 18}}));
    EXPECT_EQ(cell.buttonFrameWithFrame({{0, 0}, {20, 19}}, view), (NSRect{{0, 0}, {20, 18}}));
}

TEST(CVLChecklistAttachmentCell, WidensWithTheLevelOfItsAttachment)
{
    const auto text = textInFont(NSFont::fontWithName(u"HelveticaNeue", 12));
    const auto cell = std::make_shared<CVLChecklistAttachmentCell>();
    EXPECT_EQ(frameInText(*cell, text, 0).size.width, 20) << "without an attachment";
    for (const auto& [level, width] : {std::pair{0U, 20.0}, {1U, 40.0}, {3U, 80.0}, {5U, 120.0}}) {
        IndentedAttachment attachment(level);
        attachment.setAttachmentCell(cell);
        EXPECT_EQ(frameInText(*cell, text, 0).size.width, width);
        EXPECT_EQ(frameInText(*cell, text, 0).origin.x, 0);
    }
}

TEST(CVLChecklistAttachmentCell, IsCentredUponItsLineInWholePoints)
{
    for (const auto size : {9.0, 12.0, 18.0, 40.0}) {
        const auto font = NSFont::fontWithName(u"HelveticaNeue", size);
        CVLChecklistAttachmentCell cell;
        const auto frame = frameInText(cell, textInFont(font), 0);
        const auto y = font->descender() - (18 - CVLExtensions::lineHeight(*font)) * 0.5;
        EXPECT_EQ(frame.origin.y, std::floor(y));
        EXPECT_EQ(frame.origin.y + frame.size.height, std::ceil(y + 18));
    }
}

TEST(CVLChecklistAttachmentCell, IsEighteenPointsHighWhereItsPlaceIsOfWholePoints)
{
    // Of this font at this size the descender is whole and the line's height even.
    const auto font = NSFont::fontWithName(u"HelveticaNeue", 2000);
    ASSERT_EQ(font->descender(), std::floor(font->descender()));
    ASSERT_EQ(std::fmod(CVLExtensions::lineHeight(*font), 2), 0);
    CVLChecklistAttachmentCell cell;
    IndentedAttachment attachment(3);
    const std::shared_ptr<CVLChecklistAttachmentCell> shared(&cell, [](auto* /*cell*/) {});
    attachment.setAttachmentCell(shared);
    EXPECT_EQ(frameInText(cell, textInFont(font), 0).size, (NSSize{80, 18}));
}

TEST_F(ClickedCell, TogglesAndTellsTheDelegate)
{
    view.addEvent(NSEventType::LeftMouseUp, kInBox);
    EXPECT_TRUE(press(kInBox));
    EXPECT_TRUE(cell.isOn());
    EXPECT_EQ(delegate.count, 1);
    EXPECT_EQ(delegate.cell, &cell);
    EXPECT_EQ(delegate.rect, kFrame);
    EXPECT_EQ(delegate.index, 7U);
}

TEST_F(ClickedCell, IsNotToggledByAPressInItsIndent)
{
    view.addEvent(NSEventType::LeftMouseUp, kInBox);
    EXPECT_FALSE(press(kInIndent));
    EXPECT_FALSE(cell.isOn());
    EXPECT_EQ(delegate.count, 0);
    EXPECT_EQ(view.eventCount(), 1U) << "the release is left to the text view";
}

TEST_F(ClickedCell, IsNotToggledByAReleaseElsewhere)
{
    view.addEvent(NSEventType::LeftMouseUp, kInIndent);
    EXPECT_FALSE(press(kInBox));
    EXPECT_FALSE(cell.isOn());
    EXPECT_EQ(delegate.count, 0);
}

TEST_F(ClickedCell, IsLeftWhereTheMouseLeavesItUnlessItIsFollowed)
{
    view.addEvent(NSEventType::LeftMouseDragged, kInIndent);
    view.addEvent(NSEventType::LeftMouseUp, kInBox);
    EXPECT_FALSE(
        cell.trackMouse(HostTextView::event(NSEventType::LeftMouseDown, kInBox), kFrame, view, 7, false));
    EXPECT_FALSE(cell.isOn());
    EXPECT_EQ(delegate.count, 0);
}

TEST(CVLChecklistAttachmentCell, TogglesInAViewThatShowsNoText)
{
    class PlainView final : public NSView {
    public:
        [[nodiscard]] NSGraphicsContext& graphicsContext() override { throw std::logic_error("not drawn"); }

        [[nodiscard]] NSPoint convertPoint(NSPoint point, const NSView* /*fromView*/) const override
        {
            return point;
        }

        [[nodiscard]] std::optional<NSEvent> nextMouseEvent() override
        {
            return NSEvent(NSEventType::LeftMouseUp, kInBox);
        }
    };

    PlainView view;
    CVLChecklistAttachmentCell cell;
    EXPECT_TRUE(cell.trackMouse({NSEventType::LeftMouseDown, kInBox}, kFrame, view, 0, true));
    EXPECT_TRUE(cell.isOn());
}

TEST_F(ClickedCell, TogglesWithoutADelegate)
{
    view.setDelegate(nullptr);
    view.addEvent(NSEventType::LeftMouseUp, kInBox);
    EXPECT_TRUE(press(kInBox));
    EXPECT_TRUE(cell.isOn());
}

TEST(CVLChecklistAttachmentCell, IsArchivedWithItsState)
{
    CVLChecklistAttachmentCell cell;
    cell.setOn(true);
    EXPECT_EQ(KeyedValues::of(cell), (KeyedValues::Values{{"CVLChecklistAttachmentCellOn", true}}));
    for (const auto on : {true, false}) {
        const auto decoded = KeyedValues::make(CVLChecklistAttachmentCell::classObject(),
                                               {{"CVLChecklistAttachmentCellOn", on}})
                                 .mutableObject<CVLChecklistAttachmentCell>();
        ASSERT_TRUE(decoded);
        EXPECT_EQ(decoded->isOn(), on);
        EXPECT_EQ(decoded->buttonCell().state(), on ? 1 : 0);
    }
}
