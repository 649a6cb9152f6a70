#include "documents/FilesBeside.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Pair;

namespace {

class FilesBeside : public StyleTest {
protected:
    static std::vector<std::pair<std::u16string, std::string>> filesOf(const TextWithFilesBeside& taken)
    {
        std::vector<std::pair<std::u16string, std::string>> files;
        for (const auto& [name, file] : taken.files)
            files.emplace_back(name, file->regularFileContents()->bytes);
        return files;
    }

    static std::u16string nameAt(const TextWithFilesBeside& taken, NSUInteger location)
    {
        const auto attachment
            = taken.text.attribute(NSAttachmentAttributeName, location).object<NSTextAttachment>();
        return attachment ? attachment->fileWrapper()->filename().value_or(u"") : std::u16string();
    }
};

TEST_F(FilesBeside, LeavePlaceholdersWithTheirNames)
{
    const auto taken
        = takeFilesOut(NoteText().add(u"a").addAttachment(makeAttachment(u"b.png", "PNG")).text());
    EXPECT_THAT(filesOf(taken), ElementsAre(Pair(u"b.png", "PNG")));
    EXPECT_EQ(nameAt(taken, 1), u"b.png");
    EXPECT_EQ(taken.keptCount, 1U);
}

TEST_F(FilesBeside, HaveNamesOfTheirOwn)
{
    const auto shared = makeFile(u"a.png", "1");
    const auto taken = takeFilesOut(NoteText()
                                        .addAttachment(NSTextAttachment::initWithFileWrapper(shared))
                                        .addAttachment(makeAttachment(u"a.png", "2"))
                                        .addAttachment(NSTextAttachment::initWithFileWrapper(shared))
                                        .addAttachment(makeAttachment(u"a 2.png", "3"))
                                        .text());
    EXPECT_THAT(filesOf(taken),
                ElementsAre(Pair(u"a 2 2.png", "3"), Pair(u"a 2.png", "2"), Pair(u"a.png", "1")));
    EXPECT_EQ(nameAt(taken, 0), u"a.png");
    EXPECT_EQ(nameAt(taken, 1), u"a 2.png");
    EXPECT_EQ(nameAt(taken, 2), u"a.png");
    EXPECT_EQ(taken.keptCount, 4U);
}

TEST_F(FilesBeside, HaveNamesThatFilesCanHave)
{
    const auto taken = takeFilesOut(NoteText()
                                        .addAttachment(makeAttachment(u"../../evil.png", "1"))
                                        .addAttachment(makeAttachment(u"..", "2"))
                                        .text());
    for (const auto& [name, file] : taken.files) {
        EXPECT_EQ(name.find(u'/'), std::u16string::npos);
        EXPECT_NE(name, u"..");
        EXPECT_NE(name, u"");
    }
    EXPECT_EQ(taken.files.size(), 2U);
}

TEST_F(FilesBeside, AreMadeOfContentsWithoutAFile)
{
    const auto taken = takeFilesOut(
        NoteText().addAttachment(NSTextAttachment::initWithData(NSData{"PNG"}, u"public.png")).text());
    EXPECT_THAT(filesOf(taken), ElementsAre(Pair(u"Attachment.png", "PNG")));
}

TEST_F(FilesBeside, AreNoLinks)
{
    const auto link
        = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::fileURLWithPath("/etc/passwd"));
    link->setPreferredFilename(u"a.png");
    const auto taken = takeFilesOut(
        NoteText().add(u"a").addAttachment(NSTextAttachment::initWithFileWrapper(link)).add(u"b").text());
    EXPECT_TRUE(taken.files.empty());
    EXPECT_EQ(taken.text.string(), u"ab");
    EXPECT_EQ(taken.keptCount, 0U);
}

TEST_F(FilesBeside, AreCountedWithoutBoxesAndDividers)
{
    auto text = checklistText({{true, 0, u"a"}});
    text.appendAttributedString(NoteText()
                                    .addAttachment(CVLDividerTextAttachment::init())
                                    .addAttachment(makeAttachment(u"a.png"))
                                    .addAttachment(std::make_shared<NSTextAttachment>())
                                    .text());
    EXPECT_EQ(fileCountOf(text), 1U);
}

} // namespace
