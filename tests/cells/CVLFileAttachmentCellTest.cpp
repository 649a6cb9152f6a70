#include "cells/CVLFileAttachmentCell.h"

#include "platform/drawing/NSStringDrawing.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/views/NSTextContainer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct FileCell : testing::Test {
    FileCell() { wrapper->setPreferredFilename(u"Report.pdf"); }

    void show() { attachment->setAttachmentCell(cell); }

    void hideExtension()
    {
        auto attributes = wrapper->fileAttributes();
        attributes.extensionHidden = true;
        wrapper->setFileAttributes(attributes);
    }

    [[nodiscard]] std::u16string shownName() const { return std::u16string(cell->filenameString().string()); }

    NSFileWrapper::Ref wrapper = NSFileWrapper::initRegularFileWithContents({});
    std::shared_ptr<NSTextAttachment> attachment = NSTextAttachment::initWithFileWrapper(wrapper);
    std::shared_ptr<CVLFileAttachmentCell> cell = std::make_shared<CVLFileAttachmentCell>();
};

} // namespace

TEST_F(FileCell, ShowsIconAndNameOnceItHasAnAttachment)
{
    EXPECT_EQ(cell->iconImage(), nullptr);
    show();
    ASSERT_TRUE(cell->iconImage());
    EXPECT_EQ(cell->iconImage()->size(), (NSSize{32, 32}));
    EXPECT_EQ(shownName(), u"Report.pdf");
}

TEST_F(FileCell, PrefersTheNameOnDisk)
{
    wrapper->setFilename(u"Report 1.pdf");
    show();
    EXPECT_EQ(shownName(), u"Report 1.pdf");
    wrapper->setFilename(u"");
    cell->updateForFileWrapper();
    EXPECT_EQ(shownName(), u"Report.pdf");
}

TEST_F(FileCell, LeavesAHiddenExtensionOut)
{
    hideExtension();
    show();
    EXPECT_EQ(shownName(), u"Report");
}

TEST_F(FileCell, HasNoNameWithoutAFile)
{
    attachment->setFileWrapper(nullptr);
    show();
    EXPECT_EQ(shownName(), u"");
    EXPECT_TRUE(cell->iconImage());
}

TEST_F(FileCell, SetsTheNameInTheSmallSystemFontCutInTheMiddle)
{
    show();
    const auto attributes = cell->filenameString().attributesAtIndex(0);
    const auto font = attributes.at(std::u16string(NSFontAttributeName)).object<NSFont>();
    ASSERT_TRUE(font);
    EXPECT_TRUE(font->isEqual(*NSFont::systemFontOfSize(11)));
    EXPECT_EQ(attributes.at(std::u16string(NSForegroundColorAttributeName)), NSAny(NSColor::labelColor()));
    const auto style
        = attributes.at(std::u16string(NSParagraphStyleAttributeName)).object<NSParagraphStyle>();
    ASSERT_TRUE(style);
    EXPECT_EQ(static_cast<int>(style->lineBreakMode()), 5);
}

TEST_F(FileCell, HasTheIconOfTheFilesType)
{
    show();
    const auto icon = cell->iconImage();
    wrapper->setPreferredFilename(u"Report.zip");
    cell->updateForFileWrapper();
    EXPECT_FALSE(icon->isEqual(*cell->iconImage()));
}

TEST_F(FileCell, IsAtLeastAsWideAsItsIcon)
{
    wrapper->setPreferredFilename(u"i");
    show();
    const auto name = sizeOfAttributedString(cell->filenameString());
    ASSERT_LT(name.width, 32);
    EXPECT_EQ(cell->cellSize(), (NSSize{32, std::ceil(name.height + 37)}));
}

TEST_F(FileCell, IsAsWideAsItsName)
{
    wrapper->setPreferredFilename(u"A name that is a good deal wider than the icon.pdf");
    show();
    const auto name = sizeOfAttributedString(cell->filenameString());
    ASSERT_GT(name.width, 32);
    EXPECT_EQ(cell->cellSize(), (NSSize{std::ceil(name.width), std::ceil(name.height + 37)}));
}

TEST_F(FileCell, HasASizeWithoutAnAttachment)
{
    EXPECT_EQ(cell->cellSize().width, 32);
    EXPECT_TRUE(cell->iconImage()) << "looked up for the size";
}

TEST_F(FileCell, ReachesTwoPointsBelowTheBaseline)
{
    EXPECT_EQ(cell->cellBaselineOffset(), (NSPoint{0, -2}));
    show();
    EXPECT_EQ(cell->cellFrameForTextContainer(NSTextContainer({100, 100}), {}, {}, 0),
              (NSRect{{0, -2}, cell->cellSize()}));
}
