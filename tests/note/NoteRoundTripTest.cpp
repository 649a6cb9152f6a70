#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/ColourEquality.h"
#include "note/CVLNoteFile.h"
#include "platform/foundation/Unicode.h"
#include "tests/note/NotePackages.h"
#include "tests/note/RandomNotes.h"

namespace {

/// What an attachment is, as text: identities change on the way.
std::u16string describe(const NSAny& value)
{
    const auto attachment = value.mutableObject<NSTextAttachment>();
    if (!attachment)
        return {};
    if (const auto box = std::dynamic_pointer_cast<CVLChecklistTextAttachment>(attachment))
        return UTF16FromUTF8((box->isOn() ? "on " : "off ") + std::to_string(box->indentationLevel()));
    if (attachment->isExactly<CVLDividerTextAttachment>())
        return u"divider";
    const auto* contents = attachment->fileWrapper()->regularFileContents();
    return UTF16FromUTF8((attachment->isExactly<CVLFileAttachment>() ? "file " : "attachment ")
                         + contents->bytes);
}

/// The text with descriptions in the place of its attachments.
NSMutableAttributedString described(const NSAttributedString& text)
{
    NSMutableAttributedString changed(text);
    changed.enumerateAttribute(NSAttachmentAttributeName, [&](const NSAny& value, NSRange run, bool&) {
        if (!value)
            return;
        changed.addAttribute(NSAttachmentAttributeName, describe(value), run);
        // Dividers are put back bare, and get no colour.
        if (describe(value) == u"divider")
            changed.setAttributes({{std::u16string(NSAttachmentAttributeName), u"divider"}}, run);
    });
    return changed;
}

/// The runs by themselves, to see where two texts differ.
std::string runsOf(const NSAttributedString& text)
{
    std::string runs;
    const auto describeRun = [&](const NSAttributes& attributes, NSRange run, bool&) {
        runs += UTF8FromUTF16(NSStringFromRange(run) + u" " + text.substringWithRange(run)) + ":";
        for (const auto& [name, value] : attributes)
            runs += " " + UTF8FromUTF16(name) + (value.string() ? "=" + UTF8FromUTF16(*value.string()) : "");
        runs += "\n";
    };
    text.enumerateAttributesInRange({0, text.length()}, {}, describeRun);
    return runs;
}

class NoteRoundTrip : public StyleTest {
protected:
    static NSAttributedString roundTrip(const CVLNoteFile& note)
    {
        NSError error;
        const auto package = note.fileWrapper(&error);
        const auto read = package ? CVLNoteFile::initWithFileWrapper(*package, &error) : nullptr;
        EXPECT_TRUE(read) << error.localizedDescription();
        return read ? read->noteText() : NSAttributedString();
    }
};

} // namespace

TEST_F(NoteRoundTrip, KeepsAnyText)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        CVLNoteFile note;
        note.setNoteText(RandomNote(seed).text(seed % 40));
        const auto read = roundTrip(note);
        ASSERT_EQ(runsOf(described(read)), runsOf(described(note.noteText()))) << seed;
        ASSERT_EQ(described(read), described(note.noteText())) << seed;
    }
}

TEST_F(NoteRoundTrip, KeepsATextThatWentThroughSeveral)
{
    CVLNoteFile note;
    note.setNoteText(RandomNote(7).text(60));
    const auto before = described(note.noteText());
    for (int round = 0; round < 3; ++round)
        note.setNoteText(roundTrip(note));
    EXPECT_EQ(described(note.noteText()), before);
}

TEST_F(NoteRoundTrip, KeepsWhatTheNoteHasBesides)
{
    CVLNoteFile note;
    note.setShowSmallImages(true);
    note.setDrawingDataByAttachmentKey(NSAny::Dictionary{{u"key", NSData{"ink"}}});
    note.setBackgroundColor(NSColor::colorWithDeviceRed(0.5, 0.25, 1, 1));
    const auto read = CVLNoteFile::initWithFileWrapper(*note.fileWrapper());
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->showSmallImages());
    EXPECT_EQ(read->drawingDataByAttachmentKey(), note.drawingDataByAttachmentKey());
    EXPECT_TRUE(CVLExtensions::isEqualToColorCVLVersion(*read->backgroundColor(), *note.backgroundColor()));
}

TEST_F(NoteRoundTrip, DoesNotKeepWhatIsNotStored)
{
    CVLNoteFile note;
    note.setSharingItemName(u"name");
    const auto read = CVLNoteFile::initWithFileWrapper(*note.fileWrapper());
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->sharingItemName());
    EXPECT_FALSE(read->documentAttributes());
}

TEST_F(NoteRoundTrip, KeepsTheTextBackgroundThroughWhite)
{
    CVLNoteFile note;
    for (const auto& color : {NSColor::textBackgroundColor(), NSColor::whiteColor(), NSColor::blackColor()}) {
        note.setBackgroundColor(color);
        const auto read = CVLNoteFile::initWithFileWrapper(*note.fileWrapper());
        ASSERT_TRUE(read && read->backgroundColor());
        EXPECT_TRUE(read->backgroundColor()->isEqual(*NSColor::textBackgroundColor()));
    }
}

TEST_F(NoteRoundTrip, TurnsADividerThatEndsTheNoteIntoText)
{
    CVLNoteFile note;
    note.setNoteText(NoteText().add(u"a").addAttachment(CVLDividerTextAttachment::init()).text());
    EXPECT_EQ(roundTrip(note).string(), u"a***");
}

TEST_F(NoteRoundTrip, KeepsFilesThatAreCalledAsThePackagesOwn)
{
    for (const auto name : {kNoteTextMember, kNoteAttributesMember, kNoteRTFMember}) {
        CVLNoteFile note;
        note.setNoteText(NoteText().addAttachment(makeAttachment(name, "mine")).add(u"x").text());
        EXPECT_EQ(contentsAt(roundTrip(note), 0), "mine");
    }
}

TEST_F(NoteRoundTrip, KeepsAFolderThatIsAttached)
{
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({{u"inner", makeFile(u"inner", "x")}});
    folder->setPreferredFilename(u"a.pages");
    CVLNoteFile note;
    note.setNoteText(
        NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(folder)).add(u"x").text());
    const auto read = attachmentAt(roundTrip(note), 0)->fileWrapper();
    ASSERT_TRUE(read->isDirectory());
    EXPECT_EQ(read->fileWrapperForKey(u"inner")->regularFileContents()->bytes, "x");
}
