// Links in written documents, and what stands in texts that is no text.

#include "platform/foundation/Unicode.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/word/WordLinkAddresses.h"
#include "tests/word/WriteWord.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace {

NSAttributedString linked(std::u16string text, const NSAny& link)
{
    return NSAttributedString(std::move(text), attributesOf({{NSLinkAttributeName, link}}));
}

std::string addressOf(std::u16string_view link)
{
    return wordAddressOfLink(NSAny(link));
}

NSAttributedString attached(const std::shared_ptr<NSTextAttachment>& attachment, NSAttributes attributes = {})
{
    return NSAttributedString::attributedStringWithAttachment(NSAny(attachment), std::move(attributes));
}

std::shared_ptr<NSTextAttachment> file(std::u16string name, std::string bytes)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents(NSData{std::move(bytes)});
    wrapper->setPreferredFilename(std::move(name));
    return NSTextAttachment::initWithFileWrapper(wrapper);
}

std::size_t countOf(std::string_view text, std::string_view part)
{
    std::size_t count = 0;
    for (auto place = text.find(part); place != std::string_view::npos; place = text.find(part, place + 1))
        ++count;
    return count;
}

} // namespace

TEST(WordLinkWriting, WritesLinksAsRelationships)
{
    NSMutableAttributedString text(linked(u"one", *NSURL::URLWithString("https://a.example/b?c=1&d#e")));
    text.appendAttributedString(NSAttributedString(u" and "));
    text.appendAttributedString(linked(u"two", NSAny(u"https://a.example/b?c=1&d#e")));
    const auto package = wordBytes(text);
    const auto relationships = memberOf(package, "word/_rels/document.xml.rels");
    EXPECT_EQ(countOf(relationships, "Target=\"https://a.example/b?c=1&amp;d#e\" TargetMode=\"External\"/>"),
              1U);
    EXPECT_EQ(countOf(memberOf(package, "word/document.xml"), "<w:hyperlink r:id="), 2U);
    const auto again = readAgain(text);
    EXPECT_EQ(attributeAt(again, u"one", NSLinkAttributeName).url()->absoluteString(),
              "https://a.example/b?c=1&d#e");
    EXPECT_EQ(attributeAt(again, u"two", NSLinkAttributeName).url()->absoluteString(),
              "https://a.example/b?c=1&d#e");
    EXPECT_FALSE(attributeAt(again, u" and", NSLinkAttributeName));
}

TEST(WordLinkWriting, IsOneLinkOverRunsOfOtherLooks)
{
    NSMutableAttributedString text(linked(u"one two", NSAny(u"https://a.example/")));
    text.addAttribute(NSFontAttributeName, NSFont::fontWithName(u"Helvetica-Bold", 12), {4, 3});
    EXPECT_EQ(countOf(bodyOf(text), "<w:hyperlink "), 1U);
}

TEST(WordLinkWriting, WritesTheTipOfALink)
{
    auto attributes
        = attributesOf({{NSLinkAttributeName, u"https://a.example/"}, {NSToolTipAttributeName, u"a tip"}});
    const NSAttributedString text(u"one", attributes);
    EXPECT_THAT(bodyOf(text), HasSubstr(" w:tooltip=\"a tip\">"));
    EXPECT_EQ(*attributeAt(readAgain(text), u"one", NSToolTipAttributeName).string(), u"a tip");
}

TEST(WordLinkWriting, GivesLinksTheStyleOfLinks)
{
    const auto text = linked(u"one", NSAny(u"https://a.example/"));
    EXPECT_THAT(bodyOf(text), HasSubstr("<w:rStyle w:val=\"Hyperlink\"/>"));
    EXPECT_EQ(rgbAt(readAgain(text), u"one", NSForegroundColorAttributeName), 0x0563C1);
    NSMutableAttributedString red(text);
    red.addAttribute(NSForegroundColorAttributeName, NSColor::colorWithSRGBRed(1, 0, 0, 1), {0, 3});
    EXPECT_EQ(rgbAt(readAgain(red), u"one", NSForegroundColorAttributeName), 0xFF0000);
}

TEST(WordLinkWriting, TakesSafeAddressesOnly)
{
    for (const auto* const address :
         {"http://a.example", "https://a.example:80/b%20c", "ftp://a.example/", "ftps://a.example/",
          "sftp://a@a.example/", "mailto:a@b.example", "tel:+123", "sms:123", "geo:1,2", "HTTPS://A.example/",
          "http://[::1]/"})
        EXPECT_EQ(wordAddressOfLink(NSAny(UTF16FromUTF8(address))), address);
    for (const auto* const address :
         {u"javascript:alert(1)", u"vbscript:x", u"data:text/html,x", u"file:///etc/passwd", u"ms-word:x",
          u"file://server/share", u"\\\\server\\share", u"page.html", u"/a", u"", u"http:", u"http://",
          u"http:///a", u"http://a,b/", u"mailto:", u"x", u":x", u"https://a@/", u"java\nscript:x"})
        EXPECT_EQ(addressOf(address), "") << UTF8FromUTF16(address);
    EXPECT_EQ(wordAddressOfLink(NSAny(5)), "");
    EXPECT_EQ(wordAddressOfLink({}), "");
}

TEST(WordLinkWriting, EncodesWhatNoURLHolds)
{
    EXPECT_EQ(addressOf(u" https://a.example/a b\u00E9\"{100%}\n"),
              "https://a.example/a%20b%C3%A9%22%7B100%25%7D");
}

TEST(WordLinkWriting, TakesAddressesUpToTheLongestThatWordProcessorsTake)
{
    const auto address = u"http://a.example/" + std::u16string(2'062, u'a');
    EXPECT_EQ(addressOf(address).size(), 2'079U);
    EXPECT_EQ(addressOf(address + u"a"), "");
    EXPECT_EQ(addressOf(u"http://a.example/" + std::u16string(700, u'\u00E9')), "");
}

TEST(WordLinkWriting, KeepsTheTextOfLinksThatLeadNowhere)
{
    const auto text = linked(u"one", NSAny(u"javascript:alert(1)"));
    EXPECT_EQ(bodyOf(text), "<w:p><w:r><w:t xml:space=\"preserve\">one</w:t></w:r></w:p>");
    EXPECT_THAT(memberOf(wordBytes(text), "word/_rels/document.xml.rels"), Not(HasSubstr("script")));
}

TEST(WordPictureWriting, PutsPicturesInTheirBounds)
{
    const auto picture = file(u"a & b.png", pngHeader(40, 30));
    picture->setBounds(NSMakeRect(0, 0, 100, 50.5));
    const auto text = attached(picture, attributesOf({{NSToolTipAttributeName, u"a pear"}}));
    const auto body = bodyOf(text);
    EXPECT_THAT(
        body,
        HasSubstr("<wp:extent cx=\"1270000\" cy=\"641350\"/><wp:docPr id=\"1\" name=\"a &amp; b.png\" "
                  "descr=\"a pear\"/>"));
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), u"\uFFFC\n");
    const auto read = again.attribute(NSAttachmentAttributeName, 0).object<NSTextAttachment>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->bounds(), picture->bounds());
    EXPECT_EQ(read->fileWrapper()->regularFileContents()->bytes, pngHeader(40, 30));
    EXPECT_EQ(*again.attribute(NSToolTipAttributeName, 0).string(), u"a pear");
}

TEST(WordPictureWriting, TakesAPointForAPixelWithoutBounds)
{
    EXPECT_THAT(bodyOf(attached(file(u"a.png", pngHeader(40, 30)))),
                HasSubstr("<wp:extent cx=\"508000\" cy=\"381000\"/>"));
}

TEST(WordPictureWriting, ShrinksPicturesToTheText)
{
    // 72 points between the margins, which a picture of 96 points by 48 takes in three quarters of its size.
    NSAny::Dictionary attributes;
    attributes.emplace(NSLeftMarginDocumentAttribute, 270);
    attributes.emplace(NSRightMarginDocumentAttribute, 270);
    EXPECT_THAT(bodyOf(attached(file(u"a.png", pngHeader(96, 48))), attributes),
                HasSubstr("<wp:extent cx=\"914400\" cy=\"457200\"/>"));
}

TEST(WordPictureWriting, KnowsPicturesByTheirBytes)
{
    using namespace std::string_literals;

    struct Row {
        std::string bytes;
        std::string_view extension;
        std::string_view type;
    };

    for (const auto& row :
         {Row{pngHeader(1, 1), "png", "image/png"}, Row{"\xFF\xD8\xFF\xE0", "jpeg", "image/jpeg"},
          Row{"GIF89a\1\0\1\0"s, "gif", "image/gif"}, Row{"II*\0\x08\0\0\0"s, "tiff", "image/tiff"},
          Row{"BM" + std::string(12, '\0') + "\x28" + std::string(20, '\0'), "bmp", "image/bmp"},
          Row{"RIFF\0\0\0\0WEBPVP8 "s, "webp", "image/webp"},
          Row{"<?xml version='1.0'?><svg/>", "svg", "image/svg+xml"}}) {
        const auto text = attached(file(u"nothing.bin", row.bytes));
        const auto package = wordBytes(text);
        EXPECT_EQ(memberOf(package, "word/media/image1." + std::string(row.extension)), row.bytes);
        EXPECT_THAT(memberOf(package, "[Content_Types].xml"),
                    HasSubstr("<Default Extension=\"" + std::string(row.extension) + "\" ContentType=\""
                              + std::string(row.type) + "\"/>"));
        const auto read = readAgain(text).attribute(NSAttachmentAttributeName, 0).object<NSTextAttachment>();
        ASSERT_TRUE(read) << row.type;
        EXPECT_EQ(read->fileWrapper()->regularFileContents()->bytes, row.bytes);
    }
}

TEST(WordPictureWriting, TakesContentsOfAttachmentsWithoutAFile)
{
    const auto text = attached(NSTextAttachment::initWithData(NSData{pngHeader(2, 2)}, u"public.png"));
    EXPECT_EQ(memberOf(wordBytes(text), "word/media/image1.png"), pngHeader(2, 2));
}

TEST(WordPictureWriting, HasAFileThatIsAttachedTwiceOnce)
{
    const auto picture = file(u"a.png", pngHeader(2, 2));
    NSMutableAttributedString text(attached(picture));
    text.appendAttributedString(NSAttributedString(u" "));
    text.appendAttributedString(attached(NSTextAttachment::initWithFileWrapper(picture->fileWrapper())));
    const auto package = wordBytes(text);
    EXPECT_EQ(memberOf(package, "word/media/image2.png"), "");
    EXPECT_EQ(countOf(memberOf(package, "word/document.xml"), "<w:drawing>"), 2U);
    EXPECT_THAT(memberOf(package, "word/document.xml"), HasSubstr("<wp:docPr id=\"2\""));
}

TEST(WordPictureWriting, WritesTheNamesOfOtherFiles)
{
    NSMutableAttributedString text(NSAttributedString(u"see "));
    text.appendAttributedString(attached(file(u"plan <1>.pdf", "%PDF-1.4")));
    EXPECT_EQ(readAgain(text).string(), u"see plan <1>.pdf\n");
}

TEST(WordPictureWriting, LeavesNothingOfAttachmentsWithoutFileAndName)
{
    NSMutableAttributedString text(NSAttributedString(u"a"));
    text.appendAttributedString(attached(std::make_shared<NSTextAttachment>()));
    text.appendAttributedString(NSAttributedString(u"b"));
    EXPECT_EQ(readAgain(text).string(), u"ab\n");
}

TEST(WordPictureWriting, LinksPictures)
{
    const auto text = attached(file(u"a.png", pngHeader(2, 2)),
                               attributesOf({{NSLinkAttributeName, u"https://a.example/"}}));
    const auto link = readAgain(text).attribute(NSLinkAttributeName, 0);
    ASSERT_TRUE(link.url());
    EXPECT_EQ(link.url()->absoluteString(), "https://a.example/");
}
