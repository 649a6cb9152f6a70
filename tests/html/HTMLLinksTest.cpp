#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

NSHTMLReadingOptions optionsForFile()
{
    NSHTMLReadingOptions options;
    options.baseURL = NSURL::fileURLWithPath("/home/mia/secret/l.html");
    return options;
}

/// The target of the link at the page's start; "none" for none.
std::string targetIn(std::string_view page, const NSHTMLReadingOptions& options, std::u16string_view words)
{
    const auto text = NSAttributedStringDocumentFormats::initWithHTML(NSData{std::string(page)}, options);
    const auto place = text ? text->string().find(words) : std::u16string_view::npos;
    if (place == std::u16string_view::npos)
        return "no such words";
    const auto value = text->attribute(NSLinkAttributeName, place);
    return value.url() ? value.url()->absoluteString() : "none";
}

} // namespace

TEST(HTMLLinks, StayAsWrittenInAFile)
{
    const auto options = optionsForFile();
    EXPECT_EQ(targetIn("<a href='x.html'>w", options, u"w"), "x.html");
    EXPECT_EQ(targetIn("<a href='#s2'>w", options, u"w"), "#s2");
    EXPECT_EQ(targetIn("<a href='../a b.html'>w", options, u"w"), "../a%20b.html");
    EXPECT_EQ(targetIn("<a href='https://a.example/'>w", options, u"w"), "https://a.example/");
}

TEST(HTMLLinks, StartFromTheBaseThatAFileNames)
{
    const auto options = optionsForFile();
    EXPECT_EQ(targetIn("<base href='https://a.example/b/'><a href='x.html'>w", options, u"w"),
              "https://a.example/b/x.html");
    EXPECT_EQ(targetIn("<base href='b/'><a href='x.html'>w", options, u"w"), "b/x.html");
}

TEST(HTMLLinks, FindImagesFromTheFile)
{
    auto options = optionsForFile();
    std::vector<std::string> asked;
    options.resourceForURL = [&asked](const std::string& url) {
        asked.push_back(url);
        return nullptr;
    };
    EXPECT_EQ(targetIn("<img src=x.png alt=w>", options, u"w"), "none");
    EXPECT_THAT(asked, testing::ElementsAre("file:///home/mia/secret/x.png"));
}

TEST(HTMLLinks, EndWhereTheNextBegins)
{
    const std::string_view page = "<a href=1>one<a href=2>two</a> three";
    EXPECT_EQ(targetIn(page, {}, u"one"), "1");
    EXPECT_EQ(targetIn(page, {}, u"two"), "2");
    EXPECT_EQ(targetIn(page, {}, u"three"), "none");
}

TEST(HTMLLinks, EndWhereTheNextBeginsInABlockWithin)
{
    const std::string_view page = "<a href=1>one<div>two<a href=2>three</a> four</div>five";
    EXPECT_EQ(targetIn(page, {}, u"two"), "1");
    EXPECT_EQ(targetIn(page, {}, u"three"), "2");
    EXPECT_EQ(targetIn(page, {}, u"four"), "none");
    EXPECT_EQ(targetIn(page, {}, u"five"), "none");
}

TEST(HTMLLinks, GoOnAroundATableWithLinksOfItsOwn)
{
    const std::string_view page = "<a href=1>one<table><tr><td><a href=2>two</a> three</table>four</a> five";
    EXPECT_EQ(targetIn(page, {}, u"two"), "2");
    EXPECT_EQ(targetIn(page, {}, u"four"), "1");
    EXPECT_EQ(targetIn(page, {}, u"five"), "none");
}
