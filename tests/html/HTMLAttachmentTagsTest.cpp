#include "platform/html/HTMLAttachmentTags.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>

namespace {

using Name = std::optional<std::u16string>;

std::string tagOf(std::shared_ptr<NSFileWrapper> file, Name filename, Name preferredFilename)
{
    file->setFilename(std::move(filename));
    file->setPreferredFilename(std::move(preferredFilename));
    return htmlTagForAttachment(*NSTextAttachment::initWithFileWrapper(std::move(file)));
}

std::string tagOfFile(Name filename, Name preferredFilename)
{
    return tagOf(NSFileWrapper::initRegularFileWithContents({"bytes"}), std::move(filename),
                 std::move(preferredFilename));
}

std::string tagOfFolder(const std::u16string& name)
{
    return tagOf(NSFileWrapper::initDirectoryWithFileWrappers({}), name, name);
}

std::string tagOfContents(std::optional<NSData> contents, Name fileType)
{
    return htmlTagForAttachment(*NSTextAttachment::initWithData(std::move(contents), std::move(fileType)));
}

} // namespace

TEST(URLPathEncoding, KeepsWhatMayStandInAPath)
{
    constexpr std::u16string_view kAllowed
        = u"!$&'()*+,-./0123456789:=@ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz~";
    EXPECT_EQ(percentEncodedForURLPath(kAllowed), std::string(kAllowed.begin(), kAllowed.end()));
}

TEST(URLPathEncoding, EncodesAllOtherPrintableCharacters)
{
    EXPECT_EQ(percentEncodedForURLPath(u" \"#%;<>?[\\]^`{|}"),
              "%20%22%23%25%3B%3C%3E%3F%5B%5C%5D%5E%60%7B%7C%7D");
}

TEST(URLPathEncoding, EncodesControlCharacters)
{
    const std::u16string characters{u'\0', u'\n', u'\u001F', u'\u007F'};
    EXPECT_EQ(percentEncodedForURLPath(characters), "%00%0A%1F%7F");
}

TEST(URLPathEncoding, EncodesOtherCharactersAsUTF8)
{
    EXPECT_EQ(percentEncodedForURLPath(u"\u00E9"), "%C3%A9");
    EXPECT_EQ(percentEncodedForURLPath(u"\u20AC"), "%E2%82%AC");
    EXPECT_EQ(percentEncodedForURLPath(u"\U0001F600"), "%F0%9F%98%80");
    EXPECT_EQ(percentEncodedForURLPath(u""), "");
}

TEST(HTMLAttachmentTags, HoldTheEncodedNameAndTheName)
{
    EXPECT_EQ(htmlImageTag(u"a b.png"), R"(<img src="file:///a%20b.png" alt="a b.png">)");
    EXPECT_EQ(htmlObjectTag(u"a b.zip"), R"(<object data="file:///a%20b.zip">a b.zip</object>)");
}

TEST(HTMLAttachmentTags, TakeTheNameAsItStands)
{
    EXPECT_EQ(htmlImageTag(u"a & b's.png"), R"(<img src="file:///a%20&%20b's.png" alt="a & b's.png">)");
    EXPECT_EQ(htmlObjectTag(u"\u00E9;"), "<object data=\"file:///%C3%A9%3B\">\u00E9;</object>");
}

TEST(HTMLAttachmentTags, LetNoNameBeMarkup)
{
    EXPECT_EQ(htmlImageTag(u"a\" onload=\"b.png"),
              R"(<img src="file:///a%22%20onload=%22b.png" alt="a&quot; onload=&quot;b.png">)");
    EXPECT_EQ(htmlObjectTag(u"<script>"), R"(<object data="file:///%3Cscript%3E">&lt;script&gt;</object>)");
}

TEST(HTMLAttachmentTags, AreImagesForImagesAndPDFAndObjectsForOtherFiles)
{
    EXPECT_EQ(tagOfFile(u"a.png", u"a.png"), htmlImageTag(u"a.png"));
    EXPECT_EQ(tagOfFile(u"a.pdf", u"a.pdf"), htmlImageTag(u"a.pdf"));
    EXPECT_EQ(tagOfFile(u"a.zip", u"a.zip"), htmlObjectTag(u"a.zip"));
    EXPECT_EQ(tagOfFile(u"a.unheardof", u"a.unheardof"), htmlObjectTag(u"a.unheardof"));
}

TEST(HTMLAttachmentTags, AreObjectsForFolders)
{
    EXPECT_EQ(tagOfFolder(u"things"), htmlObjectTag(u"things"));
    EXPECT_EQ(tagOfFolder(u"a.rtfd"), htmlObjectTag(u"a.rtfd"));
}

TEST(HTMLAttachmentTags, AreObjectsForFilesWithoutAType)
{
    EXPECT_EQ(tagOfFile(u"a.png", std::nullopt), htmlObjectTag(u"a.png"));
}

TEST(HTMLAttachmentTags, HaveTheNameOnDiskAndElseThePreferredOne)
{
    EXPECT_EQ(tagOfFile(u"disk.zip", u"preferred.png"), htmlImageTag(u"disk.zip"));
    EXPECT_EQ(tagOfFile(std::nullopt, u"preferred.zip"), htmlObjectTag(u"preferred.zip"));
    EXPECT_EQ(tagOfFile(u"", u"preferred.zip"), htmlObjectTag(u"preferred.zip"));
}

TEST(HTMLAttachmentTags, AreNoneForFilesWithoutAName)
{
    EXPECT_EQ(tagOfFile(std::nullopt, std::nullopt), "");
    EXPECT_EQ(tagOfFile(u"", u""), "");
}

TEST(HTMLAttachmentTags, HoldTheImageOfAnAttachmentWithoutAFile)
{
    EXPECT_EQ(tagOfContents(NSData{"abc"}, u"public.png"),
              R"(<img src="data:image/png;base64,YWJj" alt="">)");
}

TEST(HTMLAttachmentTags, AreNoneForOtherAttachmentsWithoutAFile)
{
    EXPECT_EQ(tagOfContents(NSData{"abc"}, u"com.adobe.pdf"), "");
    EXPECT_EQ(tagOfContents(NSData{"abc"}, u"unheard.of"), "");
    EXPECT_EQ(tagOfContents(NSData{"abc"}, std::nullopt), "");
    EXPECT_EQ(tagOfContents(std::nullopt, u"public.png"), "");
    EXPECT_EQ(htmlTagForAttachment(NSTextAttachment()), "");
}
