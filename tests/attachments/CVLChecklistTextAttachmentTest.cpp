#include "attachments/CVLChecklistTextAttachment.h"

#include "attachments/AttachmentClasses.h"
#include "attachments/AttachmentExtensions.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "styles/CVLNoteTextStyle.h"
#include "tests/support/KeyedValues.h"

#include <gmock/gmock.h>

#include <array>

using testing::ElementsAre;

namespace {

using Attachment = std::shared_ptr<CVLChecklistTextAttachment>;

Attachment item(bool on, NSUInteger level)
{
    auto attachment = CVLChecklistTextAttachment::init();
    attachment->setOn(on);
    attachment->setIndentationLevel(level);
    return attachment;
}

std::string archiveOf(const Attachment& attachment)
{
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(NSAny(attachment), true);
    return data ? data->bytes : std::string();
}

Attachment unarchived(std::string_view archive)
{
    return NSKeyedUnarchiver::unarchivedObjectOfClass(CVLChecklistTextAttachment::classObject(), archive,
                                                      attachmentClasses())
        .mutableObject<CVLChecklistTextAttachment>();
}

Attachment pasted(const NSAny& propertyList, std::u16string_view type)
{
    return CVLChecklistTextAttachment::pasteboardReading()
        .initWithPasteboardPropertyList(propertyList, type)
        .mutableObject<CVLChecklistTextAttachment>();
}

/// An archive with the two keys at its top level.
std::string archiveWithTopLevel(const NSAny& on, const NSAny& level)
{
    const NSAny::Dictionary archive{{u"$archiver", u"NSKeyedArchiver"},
                                    {u"$version", 100000},
                                    {u"$objects", NSAny::Array{u"$null"}},
                                    {u"$top", NSAny::Dictionary{{u"on", on}, {u"indentationLevel", level}}}};
    const auto data
        = NSPropertyListSerialization::dataWithPropertyList(archive, NSPropertyListFormat::Binary);
    return data ? data->bytes : std::string();
}

} // namespace

TEST(CVLChecklistTextAttachment, HasTheExactConstants)
{
    EXPECT_EQ(CVLChecklistType, u"com.tessel.checklist");
    EXPECT_EQ(CVLChecklistOnValueReplacementString, u"\u2713 ");
    EXPECT_EQ(CVLChecklistOffValueReplacementString, u"\u25E6 ");
    EXPECT_EQ(CVLChecklistMaxIndentationLevel, 5U);
}

TEST(CVLChecklistTextAttachment, IsAnEmptyBoxAtTheTopLevelAtFirst)
{
    const auto attachment = CVLChecklistTextAttachment::init();
    EXPECT_FALSE(attachment->isOn());
    EXPECT_EQ(attachment->indentationLevel(), 0U);
    EXPECT_EQ(attachment->fileType(), CVLChecklistType);
}

TEST(CVLChecklistTextAttachment, KeepsItsStateInItsCell)
{
    const auto attachment = CVLChecklistTextAttachment::init();
    const auto cell = std::dynamic_pointer_cast<CVLChecklistAttachmentCell>(attachment->attachmentCell());
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->attachment(), attachment.get());
    attachment->setOn(true);
    EXPECT_TRUE(cell->isOn());
    cell->setOn(false);
    EXPECT_FALSE(attachment->isOn());
}

TEST(CVLChecklistTextAttachment, ReplacesAnyOtherCell)
{
    const auto attachment = item(true, 1);
    attachment->setAttachmentCell(std::make_shared<NSTextAttachmentCell>());
    EXPECT_FALSE(attachment->isOn());
    const auto cell = std::dynamic_pointer_cast<CVLChecklistAttachmentCell>(attachment->attachmentCell());
    ASSERT_TRUE(cell);
    EXPECT_EQ(attachment->attachmentCell(), cell) << "only once";
    EXPECT_FALSE(cell->isOn());
}

TEST(CVLChecklistTextAttachment, IsCopiedWithItsStateAndLevel)
{
    for (const auto on : {true, false}) {
        const auto original = item(on, 3);
        const auto copy = original->copy();
        EXPECT_NE(copy, original);
        EXPECT_EQ(copy->isOn(), on);
        EXPECT_EQ(copy->indentationLevel(), 3U);
        EXPECT_EQ(copy->fileType(), CVLChecklistType);
        copy->setOn(!on);
        EXPECT_EQ(original->isOn(), on) << "they share nothing";
    }
}

TEST(CVLChecklistTextAttachment, HasItsFormsInPlainText)
{
    EXPECT_EQ(item(true, 2)->replacementString(), u"\u2713 ");
    EXPECT_EQ(item(false, 2)->replacementString(), u"\u25E6 ");
}

TEST(CVLChecklistTextAttachment, HasNoName)
{
    const auto attachment = item(true, 0);
    auto wrapper = NSFileWrapper::initRegularFileWithContents({});
    wrapper->setPreferredFilename(u"Box.png");
    attachment->setFileWrapper(wrapper);
    EXPECT_EQ(CVLExtensions::displayName(*attachment), u"");
}

TEST(CVLChecklistTextAttachment, IndentsByLevelAndTheFirstLineByTheNegative)
{
    const auto body = CVLNoteTextStyle::bodyNoteTextStyle()->paragraphStyle();
    for (const auto& [level, indent] : {std::pair{0U, 20.0}, {1U, 38.0}, {2U, 56.0}, {5U, 110.0}}) {
        const auto style = item(false, level)->checklistParagraphStyle();
        EXPECT_EQ(style->headIndent(), indent);
        EXPECT_EQ(style->firstLineHeadIndent(), -indent);
        auto expected = body->mutableCopy();
        expected.setHeadIndent(indent);
        expected.setFirstLineHeadIndent(-indent);
        EXPECT_TRUE(style->isEqual(expected)) << "all else is the body style's";
    }
}

TEST(CVLChecklistTextAttachment, IsOneCharacterOfTextInItsStyle)
{
    const auto attachment = item(true, 2);
    const auto text = attachment->attributedString();
    EXPECT_EQ(text.string(), u"\uFFFC");
    EXPECT_EQ(text.attribute(NSAttachmentAttributeName, 0).mutableObject<CVLChecklistTextAttachment>(),
              attachment);
    const auto style = text.attribute(NSParagraphStyleAttributeName, 0).object<NSParagraphStyle>();
    ASSERT_TRUE(style);
    EXPECT_TRUE(style->isEqual(*attachment->checklistParagraphStyle()));
}

TEST(CVLChecklistTextAttachment, IsArchivedWithStateAndLevelOnly)
{
    EXPECT_EQ(KeyedValues::of(*item(true, 4)), (KeyedValues::Values{{"on", true}, {"indentationLevel", 4}}));
}

TEST(CVLChecklistTextAttachment, ComesBackFromAnArchiveWithoutAFileType)
{
    for (const auto on : {true, false}) {
        const auto decoded = unarchived(archiveOf(item(on, 7)));
        ASSERT_TRUE(decoded);
        EXPECT_EQ(decoded->isOn(), on);
        EXPECT_EQ(decoded->indentationLevel(), 7U);
        EXPECT_EQ(decoded->fileType(), std::nullopt);
    }
}

TEST(CVLChecklistTextAttachment, TakesNoLevelBeyondReasonFromAnArchive)
{
    const auto levelOf = [](std::int64_t level) {
        const auto decoded = KeyedValues::make(CVLChecklistTextAttachment::classObject(),
                                               {{"on", true}, {"indentationLevel", level}})
                                 .mutableObject<CVLChecklistTextAttachment>();
        return decoded ? decoded->indentationLevel() : 12345;
    };
    EXPECT_EQ(levelOf(-1), 0U);
    EXPECT_EQ(levelOf(100), 100U);
    EXPECT_EQ(levelOf(101), 100U);
    EXPECT_EQ(levelOf(INT64_MAX), 100U);
}

TEST(CVLChecklistTextAttachment, IsArchivedWithTheTextItStandsIn)
{
    const auto text = std::make_shared<const NSAttributedStringObject>(
        item(true, 1)->attributedString(), NSAttributedStringObject::Form::Immutable);
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(text, true);
    ASSERT_TRUE(data);
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(data->bytes, attachmentClasses());
    unarchiver->setRequiresSecureCoding(false);
    const auto read = unarchiver->decodeTopLevelObjectOfClasses({}, NSKeyedArchiveRootObjectKey)
                          .object<NSAttributedStringObject>();
    ASSERT_TRUE(read);
    const auto attachment
        = read->text().attribute(NSAttachmentAttributeName, 0).mutableObject<CVLChecklistTextAttachment>();
    ASSERT_TRUE(attachment);
    EXPECT_TRUE(attachment->isOn());
}

TEST(CVLChecklistTextAttachment, IsCopiedToThePasteboardAsItselfAndAsText)
{
    NSPasteboard board;
    const std::array<std::shared_ptr<const NSPasteboardWriting>, 1> objects{item(true, 2)};
    ASSERT_TRUE(board.writeObjects(objects));
    const auto& copied = board.pasteboardItems().front();
    EXPECT_THAT(copied.types(), ElementsAre(CVLChecklistType, NSPasteboardTypeString));
    EXPECT_EQ(copied.stringForType(NSPasteboardTypeString), u"\u2713 ");
    const auto archive = copied.dataForType(CVLChecklistType);
    ASSERT_TRUE(archive);
    const auto decoded = unarchived(archive->bytes);
    ASSERT_TRUE(decoded);
    EXPECT_TRUE(decoded->isOn());
    EXPECT_EQ(decoded->indentationLevel(), 2U);
}

TEST(CVLChecklistTextAttachment, HasNoOtherFormOnThePasteboard)
{
    EXPECT_TRUE(item(true, 2)->pasteboardPropertyListForType(u"public.png").isNil());
}

TEST(CVLChecklistTextAttachment, IsPastedAsAnEmptyBoxWhateverWasCopied)
{
    NSPasteboard board;
    const std::array<std::shared_ptr<const NSPasteboardWriting>, 1> objects{item(true, 2)};
    ASSERT_TRUE(board.writeObjects(objects));
    const std::array classes{CVLChecklistTextAttachment::pasteboardReading()};
    const auto read = board.readObjectsForClasses(classes);
    ASSERT_EQ(read.size(), 1U);
    const auto attachment = read.front().mutableObject<CVLChecklistTextAttachment>();
    ASSERT_TRUE(attachment);
    EXPECT_FALSE(attachment->isOn());
    EXPECT_EQ(attachment->indentationLevel(), 0U);
}

TEST(CVLChecklistTextAttachment, IsPastedWithWhatStandsAtTheTopLevelOfTheArchive)
{
    const auto attachment = pasted(NSData{archiveWithTopLevel(true, 3)}, CVLChecklistType);
    ASSERT_TRUE(attachment);
    EXPECT_TRUE(attachment->isOn());
    EXPECT_EQ(attachment->indentationLevel(), 3U);
}

TEST(CVLChecklistTextAttachment, IsPastedAsAnEmptyBoxFromWhatIsNoArchive)
{
    for (const NSAny& form : {NSAny(NSData{"no archive"}), NSAny(NSData{}), NSAny(u"text")}) {
        const auto attachment = pasted(form, CVLChecklistType);
        ASSERT_TRUE(attachment);
        EXPECT_FALSE(attachment->isOn());
    }
}

TEST(CVLChecklistTextAttachment, IsPastedFromItsOwnTypeOnly)
{
    EXPECT_THAT(CVLChecklistTextAttachment::pasteboardReading().readableTypes, ElementsAre(CVLChecklistType));
    EXPECT_EQ(pasted(NSData{archiveOf(item(true, 0))}, NSPasteboardTypeString), nullptr);
}
