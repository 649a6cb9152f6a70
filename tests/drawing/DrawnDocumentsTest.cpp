#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/NSImage.h"
#include "platform/drawing/NSStringDrawing.h"
#include "platform/media/PDFDocument.h"
#include "tests/drawing/SampleText.h"

#include <gtest/gtest.h>

namespace {

NSDrawing textDrawing(std::u16string_view characters)
{
    return [text = systemText(characters)](NSGraphicsContext& context) {
        drawAttributedString(text, NSMakeRect(10, 10, 180, 30), context);
    };
}

// What we write as PDF is read again by the library that reads the PDF of others.
TEST(DrawnDocuments, HaveTheirPagesInOrder)
{
    const auto pdf = DrawingSurface{{200, 50}}.PDFRepresentation(
        std::vector{textDrawing(u"first"), textDrawing(u"second"), textDrawing(u"third")});
    ASSERT_TRUE(pdf);
    const auto document = PDFDocument::initWithData(pdf->bytes);
    ASSERT_NE(document, nullptr);
    ASSERT_EQ(document->pageCount(), 3U);
    EXPECT_EQ(document->pageAtIndex(0)->string().substr(0, 5), "first");
    EXPECT_EQ(document->pageAtIndex(1)->string().substr(0, 6), "second");
    EXPECT_EQ(document->pageAtIndex(2)->string().substr(0, 5), "third");
}

TEST(DrawnDocuments, KeepTextReadableFlippedOrNot)
{
    for (const auto flipped : {Flipped::No, Flipped::Yes}) {
        const DrawingSurface surface{{200, 50}, NSAppearance::Light, flipped};
        const auto pdf = surface.PDFRepresentation(textDrawing(u"Überschrift Ελλάδα"));
        ASSERT_TRUE(pdf);
        const auto text = PDFDocument::initWithData(pdf->bytes)->pageAtIndex(0)->string();
        EXPECT_NE(text.find("Überschrift Ελλάδα"), std::string::npos) << text;
    }
}

TEST(DrawnDocuments, KeepTextWithinImages)
{
    const auto image = NSImage::imageWithSize({200, 50}, Flipped::Yes, textDrawing(u"within"));
    const auto pdf = DrawingSurface{{100, 25}}.PDFRepresentation(
        [&](NSGraphicsContext& context) { image->drawInRect(NSMakeRect(0, 0, 100, 25), context); });
    ASSERT_TRUE(pdf);
    EXPECT_NE(PDFDocument::initWithData(pdf->bytes)->pageAtIndex(0)->string().find("within"),
              std::string::npos);
}

} // namespace
