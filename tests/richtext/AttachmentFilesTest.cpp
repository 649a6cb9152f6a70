#include "richtext/AttachmentFiles.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "platform/foundation/NSLog.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace DynamicColors;

namespace {

std::string contentsOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t entriesOf(const TemporaryFolder& folder)
{
    const std::filesystem::directory_iterator entries(folder.path());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

std::u16string preferredNameAfterFix(const std::u16string& name)
{
    const auto attachment = makeAttachment(name);
    NSMutableAttributedString text(NoteText().addAttachment(attachment).text());
    fixLengthOfAttachmentFilenames(text);
    return attachment->fileWrapper()->preferredFilename().value_or(u"");
}

} // namespace

TEST(AttachmentFiles, AreGivenInTheTextsOrder)
{
    const auto first = makeAttachment(u"one.txt");
    const auto second = makeAttachment(u"two.png");
    const auto text = NoteText().add(u"a").addAttachment(second).add(u"b").addAttachment(first).text();
    EXPECT_EQ(fileAttachments(text),
              (std::vector<NSFileWrapper::Ref>{second->fileWrapper(), first->fileWrapper()}));
    EXPECT_TRUE(containsFileAttachments(text));
}

TEST(AttachmentFiles, AreGivenOnceForEachPlaceTheyStandAt)
{
    const auto attachment = makeAttachment(u"one.txt");
    const auto text = NoteText().addAttachment(attachment).add(u" ").addAttachment(attachment).text();
    EXPECT_EQ(fileAttachments(text).size(), 2U);
}

TEST(AttachmentFiles, AreNoneOfAttachmentsWithoutAFile)
{
    const auto text = NoteText()
                          .addAttachment(std::make_shared<NSTextAttachment>())
                          .addAttachment(NSTextAttachment::initWithData(NSData{"bytes"}, u"public.png"))
                          .text();
    EXPECT_FALSE(containsFileAttachments(text));
    EXPECT_TRUE(fileAttachments(text).empty());
}

TEST(AttachmentFiles, AreNoneOfBoxesAndDividers)
{
    const TemporaryFolder folder;
    const auto text = NoteText()
                          .addAttachment(makeBox(true))
                          .add(u"a\n")
                          .addAttachment(makeBox(false, 2))
                          .addAttachment(CVLDividerTextAttachment::init())
                          .text();
    EXPECT_FALSE(containsFileAttachments(text));
    EXPECT_TRUE(fileAttachments(text).empty());
    EXPECT_TRUE(fileURLsForNonImageAttachmentsWrittenToURL(text, folder.url("")).empty());
    EXPECT_EQ(entriesOf(folder), 0U);
    NSMutableAttributedString fixed(text);
    fixLengthOfAttachmentFilenames(fixed);
    EXPECT_EQ(fixed, text);
}

TEST(AttachmentFiles, AreNoneOfAPlainText)
{
    EXPECT_FALSE(containsFileAttachments(NSAttributedString()));
    EXPECT_FALSE(containsFileAttachments(NoteText().add(u"text").text()));
    EXPECT_TRUE(fileAttachments(NoteText().add(u"text").text()).empty());
}

TEST(AttachmentFiles, AreWrittenUnlessTheyAreImages)
{
    const TemporaryFolder folder;
    const auto text = NoteText()
                          .addAttachment(makeAttachment(u"report.pdf", "%PDF"))
                          .addAttachment(makeAttachment(u"photo.png", "PNG"))
                          .addAttachment(makeAttachment(u"all of it.zip", "PK"))
                          .text();
    EXPECT_EQ(
        fileURLsForNonImageAttachmentsWrittenToURL(text, NSURL::fileURLWithPath(folder.path().native())),
        (std::vector<NSURL>{folder.url("report.pdf"), folder.url("all of it.zip")}));
    EXPECT_EQ(contentsOf(folder.file("report.pdf")), "%PDF");
    EXPECT_EQ(contentsOf(folder.file("all of it.zip")), "PK");
    EXPECT_EQ(entriesOf(folder), 2U);
}

TEST(AttachmentFiles, AreWrittenWhateverTheirTypeWhenItIsUnknown)
{
    const TemporaryFolder folder;
    const auto attachment = makeAttachment(u"odd.unheardof");
    EXPECT_EQ(fileURLsForNonImageAttachmentsWrittenToURL(NoteText().addAttachment(attachment).text(),
                                                         folder.url("")),
              (std::vector<NSURL>{folder.url("odd.unheardof")}));
}

TEST(AttachmentFiles, AreWrittenAsFoldersWhenTheyAreFolders)
{
    const TemporaryFolder folder;
    auto wrapper
        = NSFileWrapper::initDirectoryWithFileWrappers({{u"inner.txt", makeFile(u"inner.txt", "in")}});
    wrapper->setFilename(u"outer");
    wrapper->setPreferredFilename(u"outer");
    const auto text = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(wrapper)).text();
    EXPECT_EQ(fileURLsForNonImageAttachmentsWrittenToURL(text, folder.url("")).size(), 1U);
    EXPECT_EQ(contentsOf(folder.file("outer/inner.txt")), "in");
}

TEST(AttachmentFiles, AreNotWrittenWithoutANameOnDiskOrAType)
{
    const TemporaryFolder folder;
    const auto unnamed = makeFile(u"named.txt");
    unnamed->setFilename(std::nullopt);
    const auto typeless = makeFile(u"typeless.txt");
    typeless->setPreferredFilename(std::nullopt);
    const auto text = NoteText()
                          .addAttachment(NSTextAttachment::initWithFileWrapper(unnamed))
                          .addAttachment(NSTextAttachment::initWithFileWrapper(typeless))
                          .addAttachment(std::make_shared<NSTextAttachment>())
                          .text();
    EXPECT_TRUE(fileURLsForNonImageAttachmentsWrittenToURL(text, folder.url("")).empty());
    EXPECT_EQ(entriesOf(folder), 0U);
}

TEST(AttachmentFiles, DoNotTakeTheNameOfAnotherFile)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "old");
    const auto text = NoteText()
                          .addAttachment(makeAttachment(u"a.txt", "new"))
                          .addAttachment(makeAttachment(u"b.txt", "first"))
                          .addAttachment(makeAttachment(u"b.txt", "second"))
                          .addAttachment(makeAttachment(u"c.txt"))
                          .text();
    EXPECT_EQ(fileURLsForNonImageAttachmentsWrittenToURL(text, folder.url("")),
              (std::vector<NSURL>{folder.url("b.txt"), folder.url("c.txt")}));
    EXPECT_EQ(contentsOf(folder.file("a.txt")), "old");
    EXPECT_EQ(contentsOf(folder.file("b.txt")), "first");
}

TEST(AttachmentFiles, AreLeftOutWhereNothingCanBeWritten)
{
    const TemporaryFolder folder;
    const auto text = NoteText().addAttachment(makeAttachment(u"a.txt")).text();
    EXPECT_TRUE(fileURLsForNonImageAttachmentsWrittenToURL(text, folder.url("missing")).empty());
}

TEST(AttachmentFiles, AreNotWrittenOutsideTheFolder)
{
    const TemporaryFolder outer;
    std::filesystem::create_directory(outer.path() / "inner");
    std::vector<std::string> log;
    const NSLogCapture capture([&log](std::string_view line) { log.emplace_back(line); });
    for (const auto* name : {u"../escaped.txt", u"..", u".", u"", u"/tmp/escaped.txt", u"a/b.txt"}) {
        const auto file = makeFile(u"plain.txt");
        file->setFilename(name);
        const auto text = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(file)).text();
        EXPECT_TRUE(fileURLsForNonImageAttachmentsWrittenToURL(text, outer.url("inner")).empty());
    }
    EXPECT_EQ(log.size(), 6U);
    EXPECT_EQ(entriesOf(outer), 1U);
    EXPECT_TRUE(std::filesystem::is_empty(outer.path() / "inner"));
}

TEST(AttachmentFiles, KeepPreferredNamesOf255Units)
{
    const std::u16string name = std::u16string(251, u'a') + u".txt";
    EXPECT_EQ(preferredNameAfterFix(name), name);
    const std::u16string unsafe = std::u16string(254, u'a') + u':';
    EXPECT_EQ(preferredNameAfterFix(unsafe), unsafe);
}

TEST(AttachmentFiles, GetSafeAndShorterPreferredNamesFrom256Units)
{
    const auto fixed = preferredNameAfterFix(std::u16string(252, u'a') + u".txt");
    EXPECT_EQ(fixed.size(), 255U);
    EXPECT_TRUE(fixed.ends_with(u".txt"));
    EXPECT_EQ(preferredNameAfterFix(u":" + std::u16string(251, u'a') + u".txt").find(u':'),
              std::u16string::npos);
}

TEST(AttachmentFiles, KeepTheirNamesOnDisk)
{
    const auto file = makeFile(std::u16string(300, u'a'));
    NSMutableAttributedString text(NoteText()
                                       .addAttachment(NSTextAttachment::initWithFileWrapper(file))
                                       .addAttachment(std::make_shared<NSTextAttachment>())
                                       .text());
    fixLengthOfAttachmentFilenames(text);
    EXPECT_EQ(file->filename()->size(), 300U);
}
