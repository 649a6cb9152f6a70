#include "rendering/NoteRendering.h"

#include "platform/images/ImageFile.h"
#include "platform/media/PDFDocument.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSTextAttachment.h"
#include "tests/drawing/Ink.h"
#include "tests/rendering/SampleNotes.h"

#include <gmock/gmock.h>
#include <libxml/parser.h>

#include <memory>
#include <string>

namespace {

using testing::HasSubstr;

std::unique_ptr<CVLNoteFile> noteWithText(std::u16string text)
{
    auto note = std::make_unique<CVLNoteFile>();
    note->setNoteText(NSAttributedString(std::move(text)));
    return note;
}

std::unique_ptr<CVLNoteFile> noteWithPicture(double width, double height)
{
    auto note = std::make_unique<CVLNoteFile>();
    note->setNoteText(NSAttributedString::attributedStringWithAttachment(
        NSAny(NSTextAttachment::initWithData(NSData{landscapePNG(width, height)}, u"public.png"))));
    return note;
}

/// A drawn note as pixels again.
NSImage::Ref drawn(const CVLNoteFile& note, const NoteSheetOptions& options = {})
{
    const auto png = PNGWithNote(note, options);
    EXPECT_TRUE(png);
    return png ? imageWithData(png->bytes) : nullptr;
}

std::uint32_t cornerOf(const NSImage& image)
{
    return image.pixels().front();
}

/// How high what is neither the corner's colour nor empty is.
std::size_t inkedRows(const NSImage& image)
{
    std::size_t rows = 0;
    for (std::size_t y = 0; y < image.pixelsHigh(); ++y) {
        const auto* row = &image.pixels()[y * image.pixelsWide()];
        rows += std::any_of(row, row + image.pixelsWide(),
                            [&](std::uint32_t value) { return value != cornerOf(image); })
            ? 1U
            : 0U;
    }
    return rows;
}

NSError refusal(const CVLNoteFile& note, const NoteSheetOptions& options)
{
    NSError error;
    EXPECT_FALSE(PNGWithNote(note, options, &error));
    EXPECT_EQ(error.domain(), DrawingErrorDomain);
    EXPECT_EQ(error.code(), static_cast<int>(DrawingError::SizeRefused));
    return error;
}

/// The text of each page.
std::vector<std::string> pageTexts(const NSData& pdf)
{
    const auto document = PDFDocument::initWithData(pdf.bytes);
    std::vector<std::string> texts;
    for (std::size_t page = 0; document && page < document->pageCount(); ++page)
        texts.push_back(document->pageAtIndex(page)->string());
    return texts;
}

TEST(NoteRendering, IsAsWideAsAskedAndAsHighAsTheNote)
{
    const auto narrow = drawn(*groceriesNote(), {.width = 300});
    const auto wide = drawn(*groceriesNote(), {.width = 600});
    EXPECT_EQ(narrow->pixelsWide(), 300U);
    EXPECT_EQ(wide->pixelsWide(), 600U);
    EXPECT_GT(narrow->pixelsHigh(), wide->pixelsHigh());
}

TEST(NoteRendering, HasTheScalesPixelsToAPoint)
{
    const auto note = groceriesNote();
    const auto once = drawn(*note, {.width = 300});
    const auto twice = drawn(*note, {.width = 300, .scale = 2});
    EXPECT_EQ(twice->pixelsWide(), 600U);
    EXPECT_EQ(twice->pixelsHigh(), 2 * once->pixelsHigh());
}

TEST(NoteRendering, IsOnTheBackgroundOfTextLightOrDark)
{
    EXPECT_EQ(cornerOf(*drawn(*groceriesNote())), 0xffffffffU);
    const auto dark = cornerOf(*drawn(*groceriesNote(), {.appearance = NSAppearance::Dark}));
    EXPECT_LT(dark & 0xFFU, 0x40U);
}

TEST(NoteRendering, IsOnTheNotesOwnBackgroundInTheAppearanceToBeReadOnIt)
{
    const auto note = noteWithText(u"text");
    note->setBackgroundColor(NSColor::colorWithRed(1, 1, 0.8, 1));
    const auto light = drawn(*note);
    EXPECT_EQ(cornerOf(*light), 0xffffffccU);
    EXPECT_EQ(light->pixels(), drawn(*note, {.appearance = NSAppearance::Dark})->pixels());
    note->setBackgroundColor(NSColor::colorWithRed(0.2, 0, 0.4, 1));
    const auto dark = drawn(*note);
    EXPECT_EQ(cornerOf(*dark), 0xff330066U);
    // The letters are light.
    EXPECT_TRUE(std::any_of(dark->pixels().begin(), dark->pixels().end(),
                            [](std::uint32_t value) { return (value >> 8U & 0xFFU) > 0xC0U; }));
}

TEST(NoteRendering, TakesWhiteAndBlackForNoBackground)
{
    const auto note = noteWithText(u"text");
    note->setBackgroundColor(NSColor::colorWithRed(1, 1, 1, 1));
    const auto dark = cornerOf(*drawn(*note, {.appearance = NSAppearance::Dark}));
    EXPECT_LT(dark & 0xFFU, 0x40U);
}

TEST(NoteRendering, ShowsImagesSmallWhenTheNoteSaysSo)
{
    const auto note = noteWithPicture(300, 200);
    EXPECT_NEAR(static_cast<double>(inkedRows(*drawn(*note))), 200, 1);
    note->setShowSmallImages(true);
    EXPECT_NEAR(static_cast<double>(inkedRows(*drawn(*note))), kSmallImageHeight, 1);
}

TEST(NoteRendering, NeverMakesASmallImageLarger)
{
    const auto note = noteWithPicture(30, 20);
    note->setShowSmallImages(true);
    EXPECT_NEAR(static_cast<double>(inkedRows(*drawn(*note))), 20, 1);
}

TEST(NoteRendering, ShrinksImagesToTheColumn)
{
    // 260 points are left between the margins.
    EXPECT_NEAR(static_cast<double>(inkedRows(*drawn(*noteWithPicture(520, 100), {.width = 300}))), 50, 1);
}

TEST(NoteRendering, DrawsAnEmptyNote)
{
    EXPECT_EQ(inkedRows(*drawn(CVLNoteFile())), 0U);
    EXPECT_EQ(pageTexts(*PDFWithNote(CVLNoteFile())).size(), 1U);
}

TEST(NoteRendering, RefusesAPictureThatWouldBeTooHigh)
{
    const auto note = noteWithText(std::u16string(3000, u'\n'));
    const auto error = refusal(*note, {});
    EXPECT_THAT(error.localizedDescription(), HasSubstr("A PDF document has pages."));
    EXPECT_TRUE(SVGWithNote(*note, {}));
    EXPECT_TRUE(PDFWithNote(*note));
}

TEST(NoteRendering, RefusesADocumentOfTooManyPages)
{
    // Seven lines of some 14 points and more stand on each page at the most.
    const auto note = noteWithText(std::u16string(7 * 50000 + 1, u'\n'));
    NSError error;
    EXPECT_FALSE(PDFWithNote(*note, {.paper = {100, 100}}, &error));
    EXPECT_THAT(error.localizedDescription(), HasSubstr("pages; a PDF has 50000 at most."));
}

TEST(NoteRendering, RefusesWidthsAndScalesThatAreNone)
{
    const auto note = noteWithText(u"text");
    for (const double width : {0.0, -1.0, 99.0, 10001.0, std::numeric_limits<double>::quiet_NaN()}) {
        (void)refusal(*note, {.width = width}); // It looks by itself.
        EXPECT_FALSE(SVGWithNote(*note, {.width = width}));
        EXPECT_FALSE(PDFWithNote(*note, {.paper = {width, 500}}));
        EXPECT_FALSE(PDFWithNote(*note, {.paper = {500, width}}));
    }
    for (const double scale : {0.0, -1.0, 1000.0, std::numeric_limits<double>::quiet_NaN()})
        (void)refusal(*note, {.scale = scale}); // It looks by itself.
}

TEST(NoteRendering, GivesSVGThatIsWellFormedAndHasTheSheetsSize)
{
    const auto svg = SVGWithNote(*journeyNote(), {.width = 480});
    ASSERT_TRUE(svg);
    const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(
        xmlReadMemory(svg->bytes.data(), static_cast<int>(svg->bytes.size()), nullptr, nullptr,
                      XML_PARSE_NONET | XML_PARSE_HUGE),
        xmlFreeDoc);
    ASSERT_TRUE(document);
    const auto* root = xmlDocGetRootElement(document.get());
    EXPECT_STREQ(reinterpret_cast<const char*>(root->name), "svg");
    EXPECT_THAT(svg->bytes.substr(0, 400), HasSubstr("width=\"480"));
}

TEST(NoteRendering, PutsTheTextOnPagesInItsOrder)
{
    std::u16string text;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        text += std::u16string(u"paragraph ") + letter + u"\n\n\n\n";
    const auto pages = pageTexts(*PDFWithNote(*noteWithText(text)));
    ASSERT_GE(pages.size(), 2U);
    std::string all;
    for (const auto& page : pages)
        all += page;
    std::size_t found = 0;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto next = all.find(std::string("paragraph ") + letter, found);
        ASSERT_NE(next, std::string::npos) << letter;
        found = next;
    }
}

TEST(NoteRendering, KeepsEveryWordOfANoteInItsDocument)
{
    std::string all;
    for (const auto& page : pageTexts(*PDFWithNote(*journeyNote())))
        all += page;
    for (const auto* words : {"Across the hills", "rangers' page", "Station to the lower hut", "Passport",
                              "One of wool", "walk --slowly", "timetable.ods"})
        EXPECT_THAT(all, HasSubstr(words));
}

TEST(NoteRendering, HasPagesOfTheWidthAskedInTheProportionsOfA4)
{
    EXPECT_EQ(paperOfWidth(595), NSMakeSize(595, 842));
    EXPECT_EQ(paperOfWidth(300), NSMakeSize(300, 425));
    const auto wide = pageTexts(*PDFWithNote(*longNote())).size();
    const auto narrow = pageTexts(*PDFWithNote(*longNote(), {.paper = paperOfWidth(300)})).size();
    EXPECT_GT(wide, 2U);
    EXPECT_GT(narrow, wide);
}

TEST(NoteRendering, FitsAnImageOnItsPage)
{
    EXPECT_EQ(pageTexts(*PDFWithNote(*noteWithPicture(200, 3000))).size(), 1U);
}

TEST(NoteRendering, MakesADocumentOfAHundredThousandParagraphs)
{
    std::u16string text;
    for (int i = 0; i < 100'000; ++i)
        text += u"a paragraph\n";
    NSError error;
    const auto pdf = PDFWithNote(*noteWithText(std::move(text)), {}, &error);
    ASSERT_TRUE(pdf) << error.localizedDescription();
    const auto document = PDFDocument::initWithData(pdf->bytes);
    ASSERT_TRUE(document);
    EXPECT_GT(document->pageCount(), 1000U);
}

} // namespace
