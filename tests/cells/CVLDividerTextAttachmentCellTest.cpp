#include "cells/CVLDividerTextAttachmentCell.h"

#include "tests/support/HostTextView.h"

#include <gtest/gtest.h>

TEST(CVLDividerTextAttachmentCell, HasTheFixedSizes)
{
    EXPECT_EQ(CVLDividerTextAttachmentCellSize, 1.0);
    EXPECT_EQ(CVLDividerTextAttachmentCellBorderSize, 7.0);
}

TEST(CVLDividerTextAttachmentCell, IsAsWideAsTheTextViewsContainerAndFifteenPointsHigh)
{
    const auto view = std::make_shared<HostTextView>(NSSize{480, 700});
    CVLDividerTextAttachmentCell cell;
    cell.setTextView(view);
    EXPECT_EQ(cell.cellSize(), (NSSize{480, 15}));
}

TEST(CVLDividerTextAttachmentCell, HasNoWidthWithoutATextView)
{
    auto view = std::make_shared<HostTextView>(NSSize{480, 700});
    CVLDividerTextAttachmentCell cell;
    EXPECT_EQ(cell.cellSize(), (NSSize{0, 15}));
    cell.setTextView(view);
    view.reset();
    EXPECT_EQ(cell.textView(), nullptr) << "the view is not owned";
    EXPECT_EQ(cell.cellSize(), (NSSize{0, 15}));
}

TEST(CVLDividerTextAttachmentCell, TakesTheWidthOfTheContainerItIsLaidOutIn)
{
    CVLDividerTextAttachmentCell cell;
    const NSTextContainer container({300, 1000});
    EXPECT_EQ(cell.cellFrameForTextContainer(container, {}, {}, 0), (NSRect{{0, 0}, {300, 15}}));
    const auto view = std::make_shared<HostTextView>(NSSize{480, 700});
    cell.setTextView(view);
    EXPECT_EQ(cell.cellFrameForTextContainer(container, {}, {}, 0), (NSRect{{0, 0}, {480, 15}}));
}

TEST(CVLDividerTextAttachmentCell, HasItsLineOnWholePoints)
{
    using Cell = CVLDividerTextAttachmentCell;
    EXPECT_EQ(Cell::lineRectWithFrame({{0, 0}, {100, 15}}), (NSRect{{0, 7}, {100, 1}}));
    EXPECT_EQ(Cell::lineRectWithFrame({{10, 20}, {101, 15}}), (NSRect{{10.5, 27}, {101, 1}}));
    EXPECT_EQ(Cell::lineRectWithFrame({{0, 0.75}, {100, 15}}), (NSRect{{0, 7}, {100, 1}}));
    EXPECT_EQ(Cell::lineRectWithFrame({{0, -20}, {100, 14}}), (NSRect{{0, -14}, {100, 1}}));
}

TEST(CVLDividerTextAttachmentCell, LeavesTheMouseToTheText)
{
    EXPECT_FALSE(CVLDividerTextAttachmentCell().wantsToTrackMouse());
}
