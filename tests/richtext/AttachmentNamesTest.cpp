#include "richtext/AttachmentNames.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

using namespace DynamicColors;

namespace {

std::u16string named(const NSAttributedString& text)
{
    const auto result = attributedStringByReplacingAttachmentsWithNames(text);
    EXPECT_TRUE(attachmentsAreInPlace(result));
    return std::u16string(result.string());
}

/// What a note is called that begins with this attachment and goes on with this text.
std::u16string nameOfNote(const NSAny& attachment, std::u16string_view behind)
{
    return generateName(NoteText().addAttachment(attachment).add(behind).text());
}

class AttachmentNames : public StyleTest { };

class NoteNames : public StyleTest { };

} // namespace

TEST_F(AttachmentNames, StandInBracketsForFiles)
{
    EXPECT_EQ(named(NoteText().add(u"See ").addAttachment(makeAttachment(u"report.pdf")).add(u".").text()),
              u"See [report.pdf].");
}

TEST_F(AttachmentNames, AreThoseOnDiskBeforeThePreferredOnes)
{
    const auto file = makeFile(u"preferred.txt");
    file->setFilename(u"disk.txt");
    const auto text = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(file)).text();
    EXPECT_EQ(named(text), u"[disk.txt]");
    file->setFilename(std::nullopt);
    EXPECT_EQ(named(text), u"[preferred.txt]");
    file->setFilename(u"");
    EXPECT_EQ(named(text), u"");
    file->setFilename(std::nullopt);
    file->setPreferredFilename(std::nullopt);
    EXPECT_EQ(named(text), u"");
}

TEST_F(AttachmentNames, AreNothingForBoxesAndDividers)
{
    EXPECT_EQ(named(NoteText()
                        .addAttachment(makeBox(true))
                        .add(u"a")
                        .addAttachment(CVLDividerTextAttachment::init())
                        .add(u"b")
                        .text()),
              u"ab");
}

TEST_F(AttachmentNames, HaveTheAttributesOfTheAttachment)
{
    const auto text = attributedStringByReplacingAttachmentsWithNames(
        NoteText().addAttachment(makeAttachment(u"a.txt"), withFont(u"Menlo-Regular", 12)).text());
    EXPECT_EQ(text.string(), u"[a.txt]");
    EXPECT_EQ(text.attributesAtIndex(0), withFont(u"Menlo-Regular", 12));
    EXPECT_EQ(text.attributesAtIndex(6), withFont(u"Menlo-Regular", 12));
}

TEST_F(AttachmentNames, AreGoneWithTheAttachments)
{
    const auto text = NoteText()
                          .addAttachment(makeAttachment(u"a.txt"))
                          .add(u"a", withFont(u"Menlo-Regular", 12))
                          .addAttachment(makeBox(false))
                          .addAttachment(CVLDividerTextAttachment::init())
                          .add(u"b")
                          .text();
    const auto without = attributedStringWithoutAttachments(text);
    EXPECT_EQ(without, NoteText().add(u"a", withFont(u"Menlo-Regular", 12)).add(u"b").text());
    EXPECT_EQ(text.length(), 5U);
}

TEST_F(AttachmentNames, LeaveAttachmentCharactersThatCarryNothing)
{
    EXPECT_EQ(attributedStringWithoutAttachments(NoteText().add(u"a\uFFFC").text()).string(), u"a\uFFFC");
}

TEST_F(NoteNames, ComeOfTheText)
{
    EXPECT_EQ(generateName(NoteText().add(u"Trip to Rome\nfirst day").text()), u"Trip to Rome");
    EXPECT_EQ(generateName(NSAttributedString()), u"");
}

TEST_F(NoteNames, HoldTheNamesOfAttachmentsWithoutExtension)
{
    EXPECT_EQ(nameOfNote(makeAttachment(u"Photo.jpg"), u"Trip"), u"Photo Trip");
    EXPECT_EQ(nameOfNote(makeAttachment(u"Photo.jpg"), u" Trip"), u"Photo Trip");
    EXPECT_EQ(nameOfNote(makeAttachment(u"Photo.jpg"), u"\nTrip"), u"Photo");
    EXPECT_EQ(nameOfNote(makeAttachment(u"Photo.jpg"), u""), u"Photo");
    EXPECT_EQ(generateName(NoteText().add(u"My ").addAttachment(makeAttachment(u"Photo.jpg")).text()),
              u"My Photo");
}

TEST_F(NoteNames, PartTwoAttachmentsInARow)
{
    EXPECT_EQ(generateName(NoteText()
                               .addAttachment(makeAttachment(u"One.jpg"))
                               .addAttachment(makeAttachment(u"Two.jpg"))
                               .text()),
              u"One Two");
}

TEST_F(NoteNames, HoldNothingOfBoxes)
{
    EXPECT_EQ(nameOfNote(makeBox(true), u"Milk"), generateName(NoteText().add(u"\uFFFCMilk").text()));
}

TEST_F(NoteNames, LeaveTheTextAsItIs)
{
    const auto text = NoteText().addAttachment(makeAttachment(u"Photo.jpg")).add(u"Trip").text();
    (void)generateName(text);
    EXPECT_EQ(text.string(), u"\uFFFCTrip");
}
