#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

NSAttributedString read(std::string_view page, const NSHTMLReadingOptions& options = {})
{
    const auto text = NSAttributedStringDocumentFormats::initWithHTML(NSData{std::string(page)}, options);
    EXPECT_TRUE(text);
    return text.value_or(NSAttributedString());
}

std::u16string textOf(std::string_view page)
{
    return std::u16string(read(page).string());
}

std::string repeated(std::string_view piece, std::size_t count)
{
    std::string text;
    for (std::size_t index = 0; index < count; ++index)
        text += piece;
    return text;
}

} // namespace

TEST(HTMLReaderBounds, RefusesPagesThatAreTooLarge)
{
    NSHTMLReadingOptions options;
    options.mostBytes = 3;
    NSError error;
    EXPECT_FALSE(NSAttributedStringDocumentFormats::initWithHTML(NSData{"abcd"}, options, nullptr, &error));
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileReadTooLarge));
}

TEST(HTMLReaderBounds, CutsTextAtItsBound)
{
    NSHTMLReadingOptions options;
    options.mostUnits = 10;
    EXPECT_LE(read(repeated("<p>abc", 1000), options).length(), 20U);
}

TEST(HTMLReaderBounds, ReadsTextBeyondTheBoundOfNesting)
{
    const auto text = textOf(repeated("<div>", 1000) + "in" + repeated("</div>", 1000) + "out");
    EXPECT_EQ(text, u"in\nout");
}

TEST(HTMLReaderBounds, KeepsWithinItsBoundsOnHostilePages)
{
    constexpr std::size_t kCount = 20'000;
    std::string attributes = "<p";
    for (std::size_t index = 0; index < kCount; ++index)
        attributes += " a" + std::to_string(index);
    for (const auto& page :
         {attributes + ">x", repeated("<b>", kCount) + repeated("</i>", kCount), repeated("<b>x", kCount),
          repeated("<p><b><i><u>x", kCount), repeated("<style>", kCount), repeated("<!--", kCount),
          repeated("<a href='", kCount), repeated("&amp", kCount), repeated("<", kCount)})
        EXPECT_LE(read(page).length(), page.size()) << page.substr(0, 40);
}

TEST(HTMLReaderBounds, NestsBlocksAndListsNoDeeperThanItsBound)
{
    constexpr std::size_t kCount = 20'000;
    NSHTMLReadingOptions options;
    options.mostNesting = 32;
    for (const auto* opening : {"<table><tr><td>", "<ul><li>", "<div style='border:1px solid'>"}) {
        const auto text = NSAttributedStringDocumentFormats::initWithHTML(
            NSData{repeated(opening, kCount) + "x"}, options);
        ASSERT_TRUE(text && text->length() > 0);
        const auto style
            = text->attribute(NSParagraphStyleAttributeName, text->length() - 1).object<NSParagraphStyle>();
        ASSERT_TRUE(style);
        EXPECT_LT(style->textBlocks().size() + style->textLists().size(), options.mostNesting) << opening;
    }
}

TEST(HTMLReaderBounds, MakesNoMoreOfWideCellsThanATableHasColumns)
{
    const auto text = read("<table>" + repeated("<tr><td colspan=1000 rowspan=1000>", 2000));
    EXPECT_EQ(text.length(), 2000U);
}

TEST(HTMLReaderBounds, KeepsOneRuleOfASelectorHoweverOftenItIsGiven)
{
    constexpr std::size_t kCount = 20'000;
    const auto text
        = read("<style>" + repeated("p{color:red}", kCount) + "</style>" + repeated("<p>x", kCount));
    EXPECT_EQ(text.length(), 2 * kCount - 1);
    NSRange run;
    EXPECT_TRUE(text.attribute(NSForegroundColorAttributeName, 0, &run, {0, text.length()}));
    EXPECT_EQ(run.length, text.length());
}
