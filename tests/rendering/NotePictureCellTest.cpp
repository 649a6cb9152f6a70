#include "rendering/NotePictureCell.h"

#include "platform/drawing/DrawingSurface.h"
#include "platform/layout/OffscreenTextView.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/views/NSTextContainer.h"
#include "tests/drawing/Ink.h"
#include "tests/rendering/SampleNotes.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

std::shared_ptr<NSTextAttachment> picture(double width, double height)
{
    return NSTextAttachment::initWithData(NSData{landscapePNG(width, height)}, u"public.png");
}

NSRect frame(const std::shared_ptr<NSTextAttachment>& attachment, double column, double highest = 1000,
             const NSMutableParagraphStyle& style = {})
{
    NSMutableAttributedString text(NSAttributedString::attributedStringWithAttachment(NSAny(attachment)));
    text.addAttribute(NSParagraphStyleAttributeName, style.copy(), {0, 1});
    const auto plain = text.copy();
    const NSTextContainer container({column, 1000}, &plain);
    return NotePictureCell::cellWithPicture(attachment, {highest, 1})
        ->cellFrameForTextContainer(container, {}, {}, 0);
}

TEST(NotePictureCell, IsAsLargeAsItsPixelsArePoints)
{
    EXPECT_EQ(frame(picture(30, 20), 100), NSMakeRect(0, 0, 30, 20));
}

TEST(NotePictureCell, IsNeverWiderThanTheColumn)
{
    EXPECT_EQ(frame(picture(300, 200), 100).size.width, 100);
    EXPECT_NEAR(frame(picture(300, 200), 100).size.height, 66.67, 0.01);
}

TEST(NotePictureCell, IsNeverHigherThanAsked)
{
    EXPECT_EQ(frame(picture(300, 200), 1000, 50).size, NSMakeSize(75, 50));
}

TEST(NotePictureCell, LeavesTheIndentsOfItsParagraphFree)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(20);
    style.setFirstLineHeadIndent(30);
    style.setTailIndent(-10);
    EXPECT_EQ(frame(picture(300, 200), 100, 1000, style).size.width, 60);
    style.setTailIndent(80);
    EXPECT_EQ(frame(picture(300, 200), 100, 1000, style).size.width, 50);
}

TEST(NotePictureCell, KeepsSomeWidthBetweenIndentsWithoutRoom)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(500);
    EXPECT_EQ(frame(picture(300, 200), 100, 1000, style).size.width, 8);
}

TEST(NotePictureCell, HasTheSizeAndPlaceOfItsBounds)
{
    const auto attachment = picture(300, 200);
    attachment->setBounds({{2, -4}, {60, 30}});
    EXPECT_EQ(frame(attachment, 100), NSMakeRect(2, -4, 60, 30));
}

TEST(NotePictureCell, TakesBoundsWithoutAreaOrMeasureForNone)
{
    for (const double side : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
        const auto attachment = picture(30, 20);
        attachment->setBounds({{}, {side, 30}});
        EXPECT_EQ(frame(attachment, 100).size, NSMakeSize(30, 20));
    }
}

TEST(NotePictureCell, IsNoneForWhatIsNoImage)
{
    EXPECT_FALSE(NotePictureCell::cellWithPicture(std::make_shared<NSTextAttachment>(), {100, 1}));
    EXPECT_FALSE(NotePictureCell::cellWithPicture(NSTextAttachment::initWithData(NSData{"x"}, u"public.png"),
                                                  {100, 1}));
}

TEST(NotePictureCell, FillsItsFrameWithThePicture)
{
    const auto attachment = picture(30, 20);
    const auto cell = NotePictureCell::cellWithPicture(attachment, {100, 1});
    const NSTextContainer container({100, 100});
    const DrawingSurface surface{{60, 40}, NSAppearance::Light, Flipped::Yes};
    const auto pixels = surface.pixels([&](NSGraphicsContext& context) {
        OffscreenTextView view(context, container);
        cell->drawWithFrame({{10, 5}, {30, 20}}, view);
    });
    EXPECT_EQ(inkOf(*pixels), (Ink{10, 5, 40, 25}));
    // The sky is above and the hills are below.
    const auto sky = pixel(*pixels, 12, 6);
    const auto hill = pixel(*pixels, 12, 24);
    EXPECT_GT(sky & 0xFFU, 0xF0U);
    EXPECT_LT(hill & 0xFFU, 0x60U);
}

TEST(NotePictureCell, DrawsAnEmptyFrameOfAPictureThatBreaksLater)
{
    const auto attachment = picture(30, 20);
    const auto cell = NotePictureCell::cellWithPicture(attachment, {100, 1});
    attachment->setContents(NSData{"gone"});
    const NSTextContainer container({100, 100});
    const DrawingSurface surface{{30, 20}, NSAppearance::Light, Flipped::Yes};
    const auto pixels = surface.pixels([&](NSGraphicsContext& context) {
        OffscreenTextView view(context, container);
        cell->drawWithFrame({{}, {30, 20}}, view);
    });
    EXPECT_EQ(inkOf(*pixels), (Ink{0, 0, 30, 20}));
    EXPECT_EQ(pixel(*pixels, 15, 10), 0U);
}

} // namespace
