#include "note/NotePackageWriter.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "note/CVLNoteFile.h"
#include "note/StoredNoteText.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Unicode.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

#include <functional>
#include <thread>

using testing::HasSubstr;

namespace {

const std::u16string kForeground(NSForegroundColorAttributeName);

class NotePackageWriter : public StyleTest {
protected:
    static NSFileWrapper::Ref packageOf(const NotePackageSource& source)
    {
        NSError error;
        auto package = notePackage(source, &error);
        if (!package)
            throw std::runtime_error(error.localizedDescription());
        return package;
    }

    static std::string bytesOf(const NSFileWrapper& package, std::u16string_view name)
    {
        const auto member = package.fileWrapperForKey(name);
        return member ? member->regularFileContents()->bytes : "none";
    }

    /// The text as it is stored.
    static NSAttributedString storedText(const NSAttributedString& text)
    {
        NSError error;
        const auto stored
            = unarchivedNoteText(bytesOf(*packageOf({.noteText = text}), kNoteTextMember), error);
        EXPECT_TRUE(stored) << error.localizedDescription();
        return stored.value();
    }

    static NSAny::Dictionary storedAttributes(const NotePackageSource& source)
    {
        const auto bytes = bytesOf(*packageOf(source), kNoteAttributesMember);
        EXPECT_TRUE(bytes.starts_with("bplist00"));
        return *NSPropertyListSerialization::propertyListWithData(bytes).dictionary();
    }

    static NSAny storedBackground(const NSColor::Ref& color)
    {
        const auto attributes = storedAttributes({.backgroundColor = color});
        const auto found = attributes.find(u"backgroundColor");
        return found == attributes.end() ? NSAny() : found->second;
    }
};

NSAny deviceColor(double red, double green, double blue)
{
    return NSAny::Dictionary{{u"red", red}, {u"green", green}, {u"blue", blue}, {u"alpha", 1.0}};
}

} // namespace

TEST_F(NotePackageWriter, WritesTextAttributesAndRichText)
{
    const auto package = packageOf({.noteText = NSAttributedString(u"some text")});
    EXPECT_TRUE(package->isDirectory());
    EXPECT_EQ(package->fileWrappers().size(), 3U);
    EXPECT_THAT(bytesOf(*package, u"NoteText"), testing::StartsWith("bplist00"));
    EXPECT_THAT(bytesOf(*package, u"TXT.rtf"), HasSubstr("some text"));
}

TEST_F(NotePackageWriter, WritesTheAttributesOfAPlainNote)
{
    const auto& bundle = NSBundle::mainBundle();
    NSAny::Dictionary expected{
        {u"showSmallImages", false}, {u"dividerRanges", NSAny::Array{}}, {u"usesColorTypes", true}};
    for (const auto& [key, name] : {std::pair(u"appIdentifier", u"CFBundleIdentifier"),
                                    std::pair(u"appVersion", u"CFBundleShortVersionString")})
        if (auto value = bundle.objectForInfoDictionaryKey(name))
            expected.emplace(key, std::move(value));
    EXPECT_EQ(storedAttributes({}), expected);
    EXPECT_TRUE(expected.contains(u"appIdentifier"));
    EXPECT_TRUE(expected.contains(u"appVersion"));
}

TEST_F(NotePackageWriter, WritesWhatTheNoteHasBesides)
{
    const NSAny drawings = NSAny::Dictionary{{u"key", NSData{"ink"}}};
    const auto attributes
        = storedAttributes({.showSmallImages = true, .drawingDataByAttachmentKey = drawings});
    EXPECT_EQ(attributes.find(u"showSmallImages")->second, NSAny(true));
    EXPECT_TRUE(attributes.find(u"showSmallImages")->second.isBoolean());
    EXPECT_EQ(attributes.find(u"drawingsData")->second, drawings);
}

TEST_F(NotePackageWriter, WritesNoAttributesWhenTheDrawingsAreNoPropertyList)
{
    const auto package
        = packageOf({.drawingDataByAttachmentKey = NSAny::Dictionary{{u"key", NSColor::redColor()}}});
    EXPECT_FALSE(package->fileWrapperForKey(kNoteAttributesMember));
    EXPECT_TRUE(package->fileWrapperForKey(kNoteTextMember));
}

TEST_F(NotePackageWriter, WritesTheBackground)
{
    EXPECT_EQ(storedBackground(NSColor::colorWithDeviceRed(0.5, 0.25, 1, 1)), deviceColor(0.5, 0.25, 1));
    EXPECT_TRUE(storedBackground(nullptr).isNil());
}

TEST_F(NotePackageWriter, WritesTheTextBackgroundAsWhite)
{
    EXPECT_EQ(storedBackground(NSColor::textBackgroundColor()), deviceColor(1, 1, 1));
    EXPECT_EQ(storedBackground(NSColor::whiteColor()), deviceColor(1, 1, 1));
}

TEST_F(NotePackageWriter, WritesDividersAsTextWithTheirRanges)
{
    const auto text = NoteText().add(u"a").addAttachment(CVLDividerTextAttachment::init()).add(u"b").text();
    EXPECT_EQ(storedText(text).string(), u"a***b");
    EXPECT_EQ(storedAttributes({.noteText = text}).find(u"dividerRanges")->second,
              NSAny(NSAny::Array{u"{1, 3}"}));
}

TEST_F(NotePackageWriter, WritesAttributesThatAreNotStoredToTheRichTextOnly)
{
    const auto text = NoteText().add(u"raised", {{u"NSSuperScript", 1}, {u"NSToolTip", u"tip"}}).text();
    EXPECT_FALSE(storedText(text).attribute(u"NSSuperScript", 0));
    EXPECT_FALSE(storedText(text).attribute(u"NSToolTip", 0));
    EXPECT_THAT(bytesOf(*packageOf({.noteText = text}), kNoteRTFMember), HasSubstr("\\super"));
}

TEST_F(NotePackageWriter, WritesTheDynamicTextColourAsBlack)
{
    const auto text = storedText(NoteText()
                                     .add(u"a", {{kForeground, NSColor::textColor()}})
                                     .add(u"b", {{kForeground, NSColor::redColor()}})
                                     .text());
    EXPECT_TRUE(text.attribute(kForeground, 0).object<NSColor>()->isEqual(*NSColor::blackColor()));
    EXPECT_TRUE(text.attribute(kForeground, 1).object<NSColor>()->isEqual(*NSColor::redColor()));
}

TEST_F(NotePackageWriter, WritesFilesAsMembers)
{
    const auto text = NoteText().addAttachment(makeAttachment(u"a.png", "image")).text();
    const auto package = packageOf({.noteText = text});
    EXPECT_EQ(bytesOf(*package, u"a.png"), "image");
    const auto stored = storedText(text);
    EXPECT_EQ(attachmentAt(stored, 0)->fileWrapper()->preferredFilename(), u"a.png");
    EXPECT_EQ(contentsAt(stored, 0), "");
}

TEST_F(NotePackageWriter, WritesAFileThatTheRichTextHasUnderAUniqueNameToo)
{
    const auto package
        = packageOf({.noteText = NoteText().addAttachment(makeAttachment(u"a.png", "image")).text()});
    EXPECT_EQ(bytesOf(*package, u"1__#$!@%!#__a.png"), "image");
}

TEST_F(NotePackageWriter, WritesFilesWithoutANameWithinTheText)
{
    const auto nameless
        = NSTextAttachment::initWithFileWrapper(NSFileWrapper::initRegularFileWithContents({"contents"}));
    EXPECT_EQ(contentsAt(storedText(NoteText().addAttachment(nameless).text()), 0), "contents");
}

TEST_F(NotePackageWriter, WritesBoxesWithinTheText)
{
    const auto stored = storedText(NoteText().addAttachment(makeBox(true, 2)).add(u"milk").text());
    const auto box = stored.attribute(NSAttachmentAttributeName, 0).object<CVLChecklistTextAttachment>();
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isOn());
    EXPECT_EQ(box->indentationLevel(), 2U);
}

TEST_F(NotePackageWriter, LeavesTheNoteAsItIs)
{
    const auto file = makeFile(u"a.png", "image");
    const auto text = NoteText()
                          .addAttachment(NSTextAttachment::initWithFileWrapper(file))
                          .addAttachment(CVLDividerTextAttachment::init())
                          .add(u"a", {{u"NSToolTip", u"tip"}, {kForeground, NSColor::textColor()}})
                          .text();
    const auto before = text.copy();
    (void)packageOf({.noteText = text});
    EXPECT_EQ(text, before);
    EXPECT_EQ(attachmentAt(text, 0)->fileWrapper(), file);
    EXPECT_EQ(file->preferredFilename(), u"a.png");
    EXPECT_EQ(file->filename(), u"a.png");
}

// Other notes may have the same files, and be saved on other threads.
TEST_F(NotePackageWriter, ChangesNoFileOfTheNoteNotEvenIntoTheSame)
{
    const auto name = std::u16string(220, u'n') + u".pages";
    const auto inner = makeFile(u"inner");
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({{u"inner", inner}});
    inner->setPreferredFilename(std::nullopt);
    folder->setPreferredFilename(name);
    const auto* const before = folder->preferredFilename()->data();
    (void)packageOf(
        {.noteText = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(folder)).text()});
    EXPECT_EQ(folder->preferredFilename()->data(), before);
    EXPECT_EQ(inner->preferredFilename(), std::nullopt);
}

TEST_F(NotePackageWriter, WritesNotesThatShareFilesOnSeveralThreads)
{
    const auto file = makeFile(u"a file with a name of some length.png", "image");
    const auto text = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(file)).add(u"x").text();
    const auto write = [&text](bool& isWritten) {
        constexpr int kRounds = 300;
        isWritten = true;
        for (int round = 0; round < kRounds && isWritten; ++round) {
            const auto package = notePackage({.noteText = text}, nullptr);
            const auto member
                = package ? package->fileWrapperForKey(u"a file with a name of some length.png") : nullptr;
            isWritten = member && member->regularFileContents()->bytes == "image";
        }
    };
    bool first = false;
    bool second = false;
    std::thread other(write, std::ref(first));
    write(second);
    other.join();
    EXPECT_TRUE(first);
    EXPECT_TRUE(second);
}

TEST_F(NotePackageWriter, FailsWhenTheTextCannotBeArchived)
{
    // An attribute's value that no archive can hold.
    class Unarchivable final : public NSObject { };

    NSError error;
    const auto text
        = NoteText().add(u"a", {{u"NSTextEffect", std::make_shared<const Unarchivable>()}}).text();
    EXPECT_FALSE(notePackage({.noteText = text}, &error));
    EXPECT_FALSE(error.domain().empty());
}
