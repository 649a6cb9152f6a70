#include "note/NoteTextForStorage.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "platform/foundation/Unicode.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::UnorderedElementsAre;

namespace {

constexpr const char* kUUID = "[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}";

class NoteTextForStorage : public StyleTest {
protected:
    static std::string nameAt(const NSAttributedString& text, NSUInteger location)
    {
        return UTF8FromUTF16(attachmentAt(text, location)->fileWrapper()->preferredFilename().value());
    }

    static std::string contentsOf(const StoredAttachments& stored, const std::string& name)
    {
        return stored.members.at(UTF16FromUTF8(name))->regularFileContents()->bytes;
    }
};

} // namespace

TEST_F(NoteTextForStorage, StoresTwentyThreeAttributes)
{
    EXPECT_THAT(storedAttributeNames(),
                UnorderedElementsAre(u"CVLHighlightTextAttribute", u"CVLNoteTextStyleIdentifier", u"NSFont",
                                     u"NSParagraphStyle", u"NSColor", u"NSBackgroundColor", u"NSLigature",
                                     u"NSKern", u"NSStrikethrough", u"NSUnderline", u"NSStrokeColor",
                                     u"NSStrokeWidth", u"NSShadow", u"NSTextEffect", u"NSAttachment",
                                     u"NSLink", u"NSBaselineOffset", u"NSUnderlineColor",
                                     u"NSStrikethroughColor", u"NSObliqueness", u"NSExpansion",
                                     u"NSWritingDirection", u"CTVerticalForms"));
    EXPECT_EQ(&storedAttributeNames(), &storedAttributeNames());
}

TEST_F(NoteTextForStorage, LeavesOtherAttributesOut)
{
    auto text = NoteText()
                    .add(u"a", {{u"NSToolTip", u"tip"}, {u"NSKern", 1.5}})
                    .add(u"b", {{u"NSKern", 2.5}})
                    .add(u"c", {{u"NSSuperScript", 1}})
                    .add(u"d")
                    .text();
    removeAttributesNotStored(text);
    EXPECT_EQ(text, NoteText().add(u"a", {{u"NSKern", 1.5}}).add(u"b", {{u"NSKern", 2.5}}).add(u"cd").text());
}

TEST_F(NoteTextForStorage, HasEmptyPlaceholdersForFiles)
{
    const auto file = makeFile(u"a.png", "image");
    const auto archived = NSTextAttachment::initWithFileWrapper(file);
    auto text = NoteText().add(u"x").addAttachment(archived).text();
    const auto stored = takeAttachments(text, NotePackage().wrapper());
    EXPECT_NE(attachmentAt(text, 1), archived);
    EXPECT_EQ(nameAt(text, 1), "a.png");
    EXPECT_EQ(contentsAt(text, 1), "");
    EXPECT_THAT(stored.members, ElementsAre(testing::Pair(u"a.png", file)));
    EXPECT_EQ(archived->fileWrapper(), file);
}

TEST_F(NoteTextForStorage, HasPlaceholdersWithTheAttributesOfTheirFiles)
{
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({{u"inner", makeFile(u"inner")}});
    folder->setPreferredFilename(u"a.pages");
    auto attributes = folder->fileAttributes();
    attributes.posixPermissions = 0750;
    attributes.extensionHidden = true;
    folder->setFileAttributes(attributes);
    auto text = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(folder)).text();
    (void)takeAttachments(text, NotePackage().wrapper());
    const auto placeholder = attachmentAt(text, 0)->fileWrapper();
    EXPECT_TRUE(placeholder->isRegularFile());
    EXPECT_EQ(placeholder->fileAttributes().posixPermissions, 0750U);
    EXPECT_TRUE(placeholder->fileAttributes().extensionHidden);
}

TEST_F(NoteTextForStorage, HasAttachmentsOfTheSameClass)
{
    auto text = NoteText()
                    .addAttachment(CVLFileAttachment::initWithFileWrapper(makeFile(u"a.zip")))
                    .addAttachment(makeAttachment(u"b.png"))
                    .text();
    (void)takeAttachments(text, NotePackage().wrapper());
    EXPECT_TRUE(isAttachment<CVLFileAttachment>(text, 0));
    EXPECT_TRUE(isAttachment<NSTextAttachment>(text, 1));
}

TEST_F(NoteTextForStorage, NamesTheSecondOfTwoFilesAfresh)
{
    auto text = NoteText()
                    .addAttachment(makeAttachment(u"image.png", "first"))
                    .addAttachment(makeAttachment(u"image.png", "second"))
                    .addAttachment(makeAttachment(u"Makefile", "third"))
                    .addAttachment(makeAttachment(u"Makefile", "fourth"))
                    .text();
    const auto stored = takeAttachments(text, NotePackage().wrapper());
    EXPECT_EQ(stored.members.size(), 4U);
    EXPECT_EQ(nameAt(text, 0), "image.png");
    EXPECT_EQ(contentsOf(stored, "image.png"), "first");
    EXPECT_THAT(nameAt(text, 1), MatchesRegex(std::string(kUUID) + "\\.png"));
    EXPECT_EQ(contentsOf(stored, nameAt(text, 1)), "second");
    EXPECT_EQ(nameAt(text, 2), "Makefile");
    EXPECT_THAT(nameAt(text, 3), MatchesRegex(kUUID));
    EXPECT_EQ(contentsOf(stored, nameAt(text, 3)), "fourth");
}

TEST_F(NoteTextForStorage, LeavesTheFileItNamesAfreshAsItIs)
{
    const auto second = makeFile(u"image.png", "second");
    auto text = NoteText()
                    .addAttachment(makeAttachment(u"image.png", "first"))
                    .addAttachment(NSTextAttachment::initWithFileWrapper(second))
                    .text();
    const auto stored = takeAttachments(text, NotePackage().wrapper());
    EXPECT_EQ(second->preferredFilename(), u"image.png");
    EXPECT_NE(stored.members.at(UTF16FromUTF8(nameAt(text, 1))), second);
}

TEST_F(NoteTextForStorage, StoresAFileTwiceThatStandsInTwoPlaces)
{
    const auto file = makeFile(u"image.png", "image");
    auto text = NoteText()
                    .addAttachment(NSTextAttachment::initWithFileWrapper(file))
                    .add(u"x")
                    .addAttachment(NSTextAttachment::initWithFileWrapper(file))
                    .text();
    const auto stored = takeAttachments(text, NotePackage().wrapper());
    EXPECT_EQ(stored.members.size(), 2U);
    EXPECT_NE(nameAt(text, 2), "image.png");
    EXPECT_EQ(contentsOf(stored, nameAt(text, 2)), "image");
}

TEST_F(NoteTextForStorage, NamesFilesAfreshThatAreCalledAsThePackagesOwn)
{
    for (const auto name : {kNoteTextMember, kNoteAttributesMember, kNoteRTFMember}) {
        auto text = NoteText().addAttachment(makeAttachment(name)).text();
        renameFilesThatNoMemberCanBe(text);
        const auto stored = takeAttachments(text, NotePackage().wrapper());
        EXPECT_THAT(nameAt(text, 0), MatchesRegex(std::string(kUUID) + "(\\.rtf)?"));
        EXPECT_EQ(contentsOf(stored, nameAt(text, 0)), "contents");
    }
}

TEST_F(NoteTextForStorage, NamesFilesAfreshThatAreCalledAsNoFileCanBe)
{
    for (const auto* name : {u"..", u".", u"../up.png", u"folder/image.png", u"/etc/passwd"}) {
        auto text = NoteText().addAttachment(makeAttachment(name)).text();
        renameFilesThatNoMemberCanBe(text);
        const auto stored = takeAttachments(text, NotePackage().wrapper());
        EXPECT_THAT(nameAt(text, 0), MatchesRegex(std::string(kUUID) + "(\\.png)?"));
        EXPECT_EQ(contentsOf(stored, nameAt(text, 0)), "contents");
    }
}

TEST_F(NoteTextForStorage, NamesFilesAfreshWhoseNamesAreTooLong)
{
    std::u16string chinese;
    for (int count = 0; count < 90; ++count)
        chinese += u'\u4E2D'; // Three bytes each.
    const std::vector<std::pair<std::u16string, std::string>> names{
        {std::u16string(252, u'a') + u".png", "\\.png"},
        {std::u16string(300, u'a'), ""},
        {chinese + u".png", "\\.png"},
        {u"a." + std::u16string(254, u'b'), ""}};
    for (const auto& [name, extension] : names) {
        auto text = NoteText().addAttachment(makeAttachment(name)).text();
        renameFilesThatNoMemberCanBe(text);
        EXPECT_THAT(nameAt(text, 0), MatchesRegex(kUUID + extension));
        EXPECT_EQ(contentsAt(text, 0), "contents");
    }
}

TEST_F(NoteTextForStorage, KeepsTheLongestNameThatAFileCanHave)
{
    auto text = NoteText().addAttachment(makeAttachment(std::u16string(251, u'a') + u".png")).text();
    renameFilesThatNoMemberCanBe(text);
    EXPECT_EQ(nameAt(text, 0), std::string(251, 'a') + ".png");
}

TEST_F(NoteTextForStorage, DropsAnExtensionThatDoesNotFitBehindAUniqueName)
{
    // A unique name takes 36 bytes and the full stop one.
    for (const auto& [length, fits] : {std::pair(218, true), std::pair(219, false)}) {
        const std::u16string extension(static_cast<std::size_t>(length), u'b');
        auto text = NoteText()
                        .addAttachment(makeAttachment(u"a." + extension, "first"))
                        .addAttachment(makeAttachment(u"a." + extension, "second"))
                        .text();
        const auto stored = takeAttachments(text, NotePackage().wrapper());
        EXPECT_EQ(nameAt(text, 0), UTF8FromUTF16(u"a." + extension));
        EXPECT_THAT(nameAt(text, 1), MatchesRegex(kUUID + std::string(fits ? "\\.b{218}" : "")));
        EXPECT_EQ(contentsOf(stored, nameAt(text, 1)), "second");
    }
}

// On disk half a character is U+FFFD: the name would be another when it is read again, and may be another's.
TEST_F(NoteTextForStorage, NamesFilesAfreshWithHalfACharacterInTheirNames)
{
    auto text = NoteText()
                    .addAttachment(makeAttachment(std::u16string{0xD800, u'a'}))
                    .addAttachment(makeAttachment(u"\uFFFDa"))
                    .addAttachment(makeAttachment(std::u16string{0xDCFE, u'a'}))
                    .text();
    renameFilesThatNoMemberCanBe(text);
    EXPECT_THAT(nameAt(text, 0), MatchesRegex(kUUID));
    EXPECT_EQ(nameAt(text, 1), "\uFFFDa");
    // This one stands for the byte FE, and is that byte on disk.
    EXPECT_EQ(attachmentAt(text, 2)->fileWrapper()->preferredFilename(), (std::u16string{0xDCFE, u'a'}));
}

TEST_F(NoteTextForStorage, NamesAFileAfreshInWhosePlaceThePackageHoldsAnother)
{
    for (const auto& [held, isSame] : {std::pair("image", true), std::pair("other", false)}) {
        auto text = NoteText().addAttachment(makeAttachment(u"a.png", "image")).text();
        const auto stored = takeAttachments(text, NotePackage().add(u"a.png", held).wrapper());
        EXPECT_EQ(nameAt(text, 0) == "a.png", isSame);
        EXPECT_EQ(contentsOf(stored, nameAt(text, 0)), "image");
    }
}

TEST_F(NoteTextForStorage, NamesAFolderAfreshInWhosePlaceThePackageHoldsAnother)
{
    const auto folderWith = [](std::u16string_view name, const std::string& contents) {
        auto folder = NSFileWrapper::initDirectoryWithFileWrappers(
            {{std::u16string(name), makeFile(name, contents)}});
        folder->setPreferredFilename(u"a.pages");
        return folder;
    };
    for (const auto& [held, isSame] :
         {std::pair(folderWith(u"inner", "x"), true), std::pair(folderWith(u"inner", "y"), false),
          std::pair(folderWith(u"other", "x"), false), std::pair(makeFile(u"a.pages", "x"), false)}) {
        auto text = NoteText()
                        .addAttachment(NSTextAttachment::initWithFileWrapper(folderWith(u"inner", "x")))
                        .text();
        (void)takeAttachments(text, NotePackage().add(held).wrapper());
        EXPECT_EQ(nameAt(text, 0) == "a.pages", isSame);
    }
}

TEST_F(NoteTextForStorage, KeepsTheNamesOfOtherFiles)
{
    auto text = NoteText()
                    .addAttachment(makeAttachment(u"a.png"))
                    .addAttachment(makeAttachment(u"notetext"))
                    .addAttachment(makeAttachment(u""))
                    .addAttachment(makeBox(true))
                    .addAttachment(std::make_shared<NSTextAttachment>())
                    .text();
    const auto before = text.copy();
    renameFilesThatNoMemberCanBe(text);
    EXPECT_EQ(text, before);
}

TEST_F(NoteTextForStorage, LeavesAttachmentsWithoutANameInTheText)
{
    const auto nameless
        = NSTextAttachment::initWithFileWrapper(NSFileWrapper::initRegularFileWithContents({"contents"}));
    const auto fileless = NSTextAttachment::initWithData(NSData{"data"}, u"public.png");
    auto text = NoteText().addAttachment(nameless).addAttachment(fileless).text();
    const auto stored = takeAttachments(text, NotePackage().wrapper());
    EXPECT_THAT(stored.members, IsEmpty());
    EXPECT_EQ(attachmentAt(text, 0), nameless);
    EXPECT_EQ(contentsAt(text, 0), "contents");
    EXPECT_EQ(attachmentAt(text, 1), fileless);
}

TEST_F(NoteTextForStorage, LeavesChecklistBoxesInTheText)
{
    const auto box = makeBox(true, 1);
    auto text = NoteText().addAttachment(box).text();
    EXPECT_THAT(takeAttachments(text, NotePackage().wrapper()).members, IsEmpty());
    EXPECT_EQ(attachmentAt(text, 0), box);
}

TEST_F(NoteTextForStorage, HasAsterisksForDividers)
{
    auto text = NoteText().add(u"a").addAttachment(CVLDividerTextAttachment::init()).add(u"b").text();
    const auto stored = takeAttachments(text, NotePackage().wrapper());
    EXPECT_EQ(text.string(), u"a***b");
    EXPECT_THAT(stored.dividerRanges, ElementsAre(NSRange{1, 3}));
    EXPECT_EQ(text.attributedSubstringFromRange({1, 3}), CVLDividerTextAttachment::replacementString());
}

TEST_F(NoteTextForStorage, HasTheRangesOfDividersInTheStoredText)
{
    auto text = NoteText()
                    .addAttachment(CVLDividerTextAttachment::init())
                    .add(u"ab")
                    .addAttachment(makeAttachment(u"a.png"))
                    .addAttachment(CVLDividerTextAttachment::init())
                    .addAttachment(CVLDividerTextAttachment::init())
                    .text();
    const auto stored = takeAttachments(text, NotePackage().wrapper());
    EXPECT_EQ(text.string(), u"***ab\uFFFC******");
    EXPECT_THAT(stored.dividerRanges, ElementsAre(NSRange{0, 3}, NSRange{6, 3}, NSRange{9, 3}));
    EXPECT_EQ(nameAt(text, 5), "a.png");
}
