// Pictures: the attachments that stand for them, their files, sizes, links and descriptions.

#include "platform/text/NSTextAttachment.h"
#include "tests/word/ReadWord.h"

namespace {

constexpr std::string_view kPicture
    = "<wp:inline><wp:extent cx='1270000' cy='635000'/><wp:docPr descr='A hill'/><a:graphic><pic:pic>"
      "<pic:blipFill><a:blip r:embed='p1'/></pic:blipFill><pic:spPr><a:xfrm><a:ext cx='127000' cy='127000'/>"
      "</a:xfrm></pic:spPr></pic:pic></a:graphic></wp:inline>";

WordPackageBytes documentWith(std::string body)
{
    WordPackageBytes document;
    document.body = std::move(body);
    document.parts.push_back({"p1", "image", "media/image1.png", "PNG bytes"});
    document.parts.push_back({"x1", "image", "http://elsewhere/image.png", {}, true});
    document.parts.push_back({"l1", "hyperlink", "http://hill", {}, true});
    document.parts.push_back({"s1", "styles", "styles.xml", wordRoot("styles", "")});
    return document;
}

std::string drawing(std::string_view content)
{
    return "<w:r><w:drawing>" + std::string(content) + "</w:drawing></w:r>";
}

/// Of the first attachment character; null when there is none.
std::shared_ptr<NSTextAttachment> attachmentIn(const NSAttributedString& text)
{
    const auto place = text.string().find(NSAttachmentCharacter);
    if (place == std::u16string_view::npos)
        return nullptr;
    return text.attribute(NSAttachmentAttributeName, place).mutableObject<NSTextAttachment>();
}

} // namespace

TEST(WordPictures, AreAttachmentsWithTheFileAndTheSizeOfTheDrawing)
{
    const auto text = textOfWord(documentWith("<w:p>" + wordRun("a") + drawing(kPicture) + "</w:p>"));
    EXPECT_EQ(text.string(), u"a\uFFFC\n");
    const auto attachment = attachmentIn(text);
    ASSERT_TRUE(attachment && attachment->fileWrapper());
    EXPECT_EQ(attachment->bounds(), NSMakeRect(0, 0, 100, 50));
    EXPECT_EQ(attachment->fileWrapper()->preferredFilename(), u"image1.png");
    EXPECT_EQ(attachment->fileType(), u"public.png");
    ASSERT_TRUE(attachment->fileWrapper()->regularFileContents());
    EXPECT_EQ(attachment->fileWrapper()->regularFileContents()->bytes, "PNG bytes");
    EXPECT_EQ(text.attribute(NSToolTipAttributeName, 1), NSAny(u"A hill"));
}

TEST(WordPictures, ThatAreShownTwiceShareTheirFile)
{
    const auto text = textOfWord(documentWith("<w:p>" + drawing(kPicture) + drawing(kPicture) + "</w:p>"));
    ASSERT_EQ(text.string(), u"\uFFFC\uFFFC\n");
    const auto first = text.attribute(NSAttachmentAttributeName, 0).mutableObject<NSTextAttachment>();
    const auto second = text.attribute(NSAttachmentAttributeName, 1).mutableObject<NSTextAttachment>();
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->fileWrapper(), second->fileWrapper());
}

TEST(WordPictures, InGroupsHaveTheirOwnSizes)
{
    const std::string picture = "<pic:pic><a:blip r:embed='p1'/><a:ext cx='127000' cy='254000'/></pic:pic>";
    const auto text = textOfWord(documentWith(
        "<w:p>" + drawing("<wp:extent cx='1270000' cy='635000'/><wps:wgp>" + picture + picture + "</wps:wgp>")
        + "</w:p>"));
    EXPECT_EQ(text.string(), u"\uFFFC\uFFFC\n");
    ASSERT_TRUE(attachmentIn(text));
    EXPECT_EQ(attachmentIn(text)->bounds(), NSMakeRect(0, 0, 10, 20));
}

TEST(WordPictures, OfTheOlderKindHaveTheSizeOfTheirShape)
{
    const auto text = textOfWord(
        documentWith("<w:p><w:r><w:pict><v:shape style='position:absolute; width:40pt;height:96'>"
                     "<v:imagedata r:id='p1' o:title='Old'/></v:shape></w:pict></w:r></w:p>"));
    ASSERT_TRUE(attachmentIn(text));
    EXPECT_EQ(attachmentIn(text)->bounds(), NSMakeRect(0, 0, 40, 72));
    EXPECT_EQ(text.attribute(NSToolTipAttributeName, 0), NSAny(u"Old"));
}

TEST(WordPictures, LeadWhereTheirLinkSays)
{
    const auto text = textOfWord(documentWith(
        "<w:p>"
        + drawing("<wp:docPr><a:hlinkClick r:id='l1'/></wp:docPr><pic:pic><a:blip r:embed='p1'/></pic:pic>")
        + "</w:p>"));
    ASSERT_EQ(text.string(), u"\uFFFC\n");
    const auto link = text.attribute(NSLinkAttributeName, 0);
    ASSERT_TRUE(link.url());
    EXPECT_EQ(link.url()->absoluteString(), "http://hill");
}

TEST(WordPictures, OfAlternativesAreShownOnce)
{
    const auto text = textOfWord(documentWith(
        "<w:p><w:r><mc:AlternateContent><mc:Choice><w:drawing>" + std::string(kPicture)
        + "</w:drawing></mc:Choice><mc:Fallback><w:pict><v:imagedata r:id='p1'/></w:pict></mc:Fallback>"
          "</mc:AlternateContent></w:r></w:p>"));
    EXPECT_EQ(text.string(), u"\uFFFC\n");
}

TEST(WordPictures, ThatAreVectorsStandWhereNothingElseDoes)
{
    auto document = documentWith(
        "<w:p>" + drawing("<pic:pic><a:blip><a:svgBlip r:embed='v1'/></a:blip></pic:pic>")
        + drawing("<pic:pic><a:blip r:embed='p1'><a:svgBlip r:embed='v1'/></a:blip></pic:pic>") + "</w:p>");
    document.parts.push_back({"v1", "image", "media/image2.svg", "<svg/>"});
    const auto text = textOfWord(document);
    ASSERT_EQ(text.string(), u"\uFFFC\uFFFC\n");
    const auto first = text.attribute(NSAttachmentAttributeName, 0).mutableObject<NSTextAttachment>();
    const auto second = text.attribute(NSAttachmentAttributeName, 1).mutableObject<NSTextAttachment>();
    ASSERT_TRUE(first && second && first->fileWrapper() && second->fileWrapper());
    EXPECT_EQ(first->fileWrapper()->preferredFilename(), u"image2.svg");
    EXPECT_EQ(second->fileWrapper()->preferredFilename(), u"image1.png");
}

TEST(WordPictures, AreNeverFetchedNorTakenFromOtherParts)
{
    const auto blip = [](std::string_view identifier) {
        return drawing("<pic:pic><a:blip r:embed='" + std::string(identifier) + "'/></pic:pic>");
    };
    EXPECT_EQ(
        textOfWord(documentWith("<w:p>" + wordRun("a") + blip("x1") + blip("s1") + blip("none") + "</w:p>"))
            .string(),
        u"a\n");
}
