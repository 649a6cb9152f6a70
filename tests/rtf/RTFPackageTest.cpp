#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSTextAttachment.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

using testing::HasSubstr;
using testing::Not;

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

NSFileWrapper::Ref file(std::u16string_view name, std::string contents)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({std::move(contents)});
    wrapper->setPreferredFilename(std::u16string(name));
    return wrapper;
}

NSAttributedString attached(const NSFileWrapper::Ref& wrapper)
{
    return NSAttributedString::attributedStringWithAttachment(NSTextAttachment::initWithFileWrapper(wrapper));
}

NSMutableAttributedString textWith(std::initializer_list<NSFileWrapper::Ref> files)
{
    NSMutableAttributedString text;
    for (const auto& wrapper : files)
        text.appendAttributedString(attached(wrapper));
    return text;
}

NSFileWrapper::Ref packageOf(const NSAttributedString& text)
{
    return Formats::RTFDFileWrapperFromRange(text, {0, text.length()});
}

std::string documentOf(const NSFileWrapper& package)
{
    return package.fileWrapperForKey(u"TXT.rtf")->regularFileContents()->bytes;
}

/// A package with a document that names these attachments, as the platform does.
NSFileWrapper::Ref packageNaming(std::initializer_list<std::string_view> names)
{
    auto package = NSFileWrapper::initDirectoryWithFileWrappers({});
    std::string document = "{\\rtf1\\ansi\\cocoartf2822 a";
    for (const auto name : names)
        document += "{{\\NeXTGraphic " + std::string(name)
            + " \\width3840 \\height1140 \\appleattachmentpadding0 \\appleembedtype0 \\appleaqc\n}\xAC}";
    package->addRegularFileWithContents({document + "b}"}, u"TXT.rtf");
    return package;
}

std::u16string textOf(const NSFileWrapper& package)
{
    const auto text = Formats::initWithRTFDFileWrapper(package);
    return text ? std::u16string(text->string()) : u"nothing";
}

std::string contentsAt(const NSAttributedString& text, NSUInteger location)
{
    const auto attachment
        = text.attribute(NSAttachmentAttributeName, location).mutableObject<NSTextAttachment>();
    return attachment ? attachment->fileWrapper()->regularFileContents()->bytes : "none";
}

} // namespace

TEST(RTFPackage, WritesAttachmentsBesideTheDocument)
{
    const auto package = packageOf(textWith({file(u"photo 1.png", "PNG")}));
    EXPECT_THAT(documentOf(*package),
                HasSubstr("{{\\NeXTGraphic photo 1.png \\width0 \\height0 \\appleattachmentpadding0 "
                          "\\appleembedtype0 \\appleaqc\n}\xAC}"));
    EXPECT_EQ(package->fileWrapperForKey(u"photo 1.png")->regularFileContents()->bytes, "PNG");
    EXPECT_EQ(package->fileWrappers().size(), 2U);
}

TEST(RTFPackage, WritesTheSizeOfAnAttachmentThatHasOne)
{
    auto attachment = NSTextAttachment::initWithFileWrapper(file(u"a.png", "x"));
    attachment->setBounds({{0, 0}, {192, 57}});
    const auto package = packageOf(NSAttributedString::attributedStringWithAttachment(attachment));
    EXPECT_THAT(documentOf(*package), HasSubstr("a.png \\width3840 \\height1140 "));
}

TEST(RTFPackage, WritesNamesAsTheyAre)
{
    const auto package = packageOf(textWith({file(u"br{a}ce \\ \u00FC\u4E2D.png", "x")}));
    EXPECT_THAT(documentOf(*package),
                HasSubstr("\\NeXTGraphic br\\{a\\}ce \\\\ \xC3\xBC\xE4\xB8\xAD.png \\width0"));
    EXPECT_EQ(textOf(*package), u"\uFFFC");
}

TEST(RTFPackage, BringsNamesToTheirComposedForm)
{
    const auto original = file(u"e\u0301.png", "x");
    const auto package = packageOf(textWith({original}));
    EXPECT_TRUE(package->fileWrapperForKey(u"\u00E9.png"));
    EXPECT_EQ(original->preferredFilename(), u"e\u0301.png");
}

TEST(RTFPackage, KeepsFilesOfOneNameApart)
{
    const auto first = file(u"a.png", "one");
    const auto package = packageOf(textWith({first, file(u"a.png", "two"), first}));
    EXPECT_EQ(package->fileWrappers().size(), 3U);
    EXPECT_EQ(package->fileWrapperForKey(u"1__#$!@%!#__a.png")->regularFileContents()->bytes, "two");
    const auto text = Formats::initWithRTFDFileWrapper(*package);
    EXPECT_EQ(contentsAt(*text, 0), "one");
    EXPECT_EQ(contentsAt(*text, 1), "two");
    EXPECT_EQ(contentsAt(*text, 2), "one");
}

TEST(RTFPackage, NeverGivesAnAttachmentTheDocumentsName)
{
    const auto package = packageOf(textWith({file(u"TXT.rtf", "mine")}));
    EXPECT_THAT(documentOf(*package), HasSubstr("{\\rtf1"));
    EXPECT_EQ(package->fileWrapperForKey(u"1__#$!@%!#__TXT.rtf")->regularFileContents()->bytes, "mine");
}

TEST(RTFPackage, GivesFilesWithoutAUsableNameOne)
{
    for (const auto* const name : {u"", u".", u".."}) {
        const auto package = packageOf(textWith({file(name, "x")}));
        EXPECT_TRUE(package->fileWrapperForKey(u"Attachment")) << UTF8FromUTF16(name);
    }
    EXPECT_TRUE(packageOf(textWith({file(u"a/../b", "x")}))->fileWrapperForKey(u"a-..-b"));
    const auto package = packageOf(textWith({file(std::u16string(300, u'\u00E9'), "x")}));
    EXPECT_EQ(textOf(*package), u"\uFFFC");
    const auto nameless = NSFileWrapper::initRegularFileWithContents({"x"});
    EXPECT_TRUE(packageOf(textWith({nameless}))->fileWrapperForKey(u"Attachment"));
    EXPECT_FALSE(nameless->preferredFilename());
}

TEST(RTFPackage, WritesContentsAsAFileOfTheirType)
{
    const auto attachment = NSTextAttachment::initWithData(NSData{"PNG"}, u"public.png");
    const auto package = packageOf(NSAttributedString::attributedStringWithAttachment(attachment));
    EXPECT_EQ(package->fileWrapperForKey(u"Attachment.png")->regularFileContents()->bytes, "PNG");
}

TEST(RTFPackage, LeavesOutAttachmentsWithoutAFile)
{
    const auto text
        = NSAttributedString::attributedStringWithAttachment(std::make_shared<NSTextAttachment>());
    EXPECT_THAT(documentOf(*packageOf(text)), Not(HasSubstr("NeXTGraphic")));
    const auto link = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::fileURLWithPath("/"));
    link->setPreferredFilename(u"link");
    EXPECT_EQ(packageOf(textWith({link}))->fileWrappers().size(), 1U);
}

TEST(RTFPackage, KeepsFoldersAsAttachments)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"Sheet.numbers");
    folder->addRegularFileWithContents({"x"}, u"inside");
    const auto text = Formats::initWithRTFDFileWrapper(*packageOf(textWith({folder})));
    const auto attachment = text->attribute(NSAttachmentAttributeName, 0).mutableObject<NSTextAttachment>();
    EXPECT_TRUE(attachment->fileWrapper()->fileWrapperForKey(u"inside"));
}

TEST(RTFPackage, FindsMembersByEquivalentNames)
{
    auto package
        = packageNaming({"e\xCC\x81.png", "br\\{a\\}ce \\\\ x.png", "\\'c3\\'a9.png", "\xC3\xA8.png"});
    package->addRegularFileWithContents({"one"}, u"\u00E9.png");
    package->addRegularFileWithContents({"two"}, u"br{a}ce \\ x.png");
    package->addRegularFileWithContents({"three"}, u"e\u0300.png");
    const auto text = Formats::initWithRTFDFileWrapper(*package);
    EXPECT_EQ(text->string(), u"a\uFFFC\uFFFC\uFFFC\uFFFCb");
    EXPECT_EQ(contentsAt(*text, 1), "one");
    EXPECT_EQ(contentsAt(*text, 2), "two");
    EXPECT_EQ(contentsAt(*text, 3), "one");
    EXPECT_EQ(contentsAt(*text, 4), "three");
}

TEST(RTFPackage, ReadsNothingWhereTheFileIsMissing)
{
    EXPECT_EQ(textOf(*packageNaming({"missing.png"})), u"ab");
}

TEST(RTFPackage, NeverLeavesThePackage)
{
    auto package = packageNaming({"../secret", "/etc/passwd", "..", ".", "", "TXT.rtf", "folder/inside",
                                  "link", std::string(300, 'x'), std::string("ok\0.png", 7)});
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"folder");
    folder->addRegularFileWithContents({"x"}, u"inside");
    package->addFileWrapper(folder);
    const auto link
        = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::fileURLWithPath("/etc/passwd"));
    link->setPreferredFilename(u"link");
    package->addFileWrapper(link);
    EXPECT_EQ(textOf(*package), u"ab");
}

TEST(RTFPackage, RefusesWhatIsNoPackage)
{
    NSError error;
    EXPECT_FALSE(Formats::initWithRTFDFileWrapper(*file(u"TXT.rtf", "{\\rtf1 x}"), nullptr, &error));
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileReadCorruptFile));
    const auto empty = NSFileWrapper::initDirectoryWithFileWrappers({});
    EXPECT_FALSE(Formats::initWithRTFDFileWrapper(*empty, nullptr, &error));
    const auto other = NSFileWrapper::initDirectoryWithFileWrappers({});
    other->addRegularFileWithContents({"no rich text"}, u"TXT.rtf");
    EXPECT_FALSE(Formats::initWithRTFDFileWrapper(*other, nullptr, &error));
    EXPECT_FALSE(Formats::initWithRTFD({"rtfd? no"}, nullptr, &error));
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileReadCorruptFile));
    EXPECT_FALSE(Formats::initWithRTFD({"rtfd? no"}));
}

TEST(RTFPackage, WritesOnlyAsAPackage)
{
    NSError error;
    const NSAny::Dictionary plain{{std::u16string(NSDocumentTypeDocumentAttribute), NSRTFTextDocumentType}};
    EXPECT_FALSE(Formats::RTFDFileWrapperFromRange(NSAttributedString(u"x"), {0, 1}, plain, &error));
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileWriteInapplicableStringEncoding));
    EXPECT_FALSE(Formats::RTFDFromRange(NSAttributedString(u"x"), {0, 1}, plain));
    const NSAny::Dictionary package{
        {std::u16string(NSDocumentTypeDocumentAttribute), NSRTFDTextDocumentType}};
    EXPECT_TRUE(Formats::RTFDFileWrapperFromRange(NSAttributedString(u"x"), {0, 1}, package));
}

TEST(RTFPackage, GoesThroughItsSerialisedForm)
{
    const auto text = textWith({file(u"a.png", "PNG")});
    const auto data = Formats::RTFDFromRange(text, {0, text.length()});
    ASSERT_TRUE(data);
    NSAny::Dictionary attributes;
    const auto again = Formats::initWithRTFD(*data, &attributes);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->string(), u"\uFFFC");
    EXPECT_EQ(contentsAt(*again, 0), "PNG");
    EXPECT_EQ(attributes[std::u16string(NSDocumentTypeDocumentAttribute)], NSAny(NSRTFDTextDocumentType));
}
