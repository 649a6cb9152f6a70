#include "note/StoredNoteText.h"

#include "attachments/AttachmentClasses.h"
#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "colours/ColourEquality.h"
#include "colours/HighlightAttribute.h"
#include "colours/HighlightColours.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSParagraphStyle.h"

#include <algorithm>
#include <utility>

namespace {

/// A number that no colour is stored under: highlights that have a colour of their own.
constexpr NSInteger kNoHighlightColorType = 999;

std::optional<NSMutableAttributedString> decodedText(std::string_view archive, NSError& error)
{
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(archive, attachmentClasses(), &error);
    if (!unarchiver)
        return std::nullopt;
    // Attachments of several classes and their files are in there; the table bounds what can be made.
    unarchiver->setRequiresSecureCoding(false);
    const auto root = unarchiver->decodeTopLevelObjectOfClasses(
        {&NSAttributedStringObject::mutableClassObject(), &CVLChecklistTextAttachment::classObject(),
         &NSTextAttachment::classObject(), &NSFileWrapper::classObject()},
        NSKeyedArchiveRootObjectKey, &error);
    const auto text = root.object<NSAttributedStringObject>();
    if (!text && error.domain().empty())
        error = NSError::errorWithCode(NSCocoaError::CoderReadCorrupt, "the archive holds no text");
    if (!text)
        return std::nullopt;
    return NSMutableAttributedString(text->text());
}

/// Visits the runs that have the attribute.
template <typename Visitor>
void enumerateValues(NSMutableAttributedString& text, std::u16string_view name, NSRange range, Visitor visit)
{
    text.enumerateAttribute(name, range, {}, [&visit](const NSAny& value, NSRange run, bool& /*stop*/) {
        if (!value.isNil())
            visit(value, run);
    });
}

struct ChecklistParagraph {
    NSRange range;
    /// Whether the range is one paragraph: a box may cover several.
    bool isOne = false;
    NSParagraphStyle::Ref style;
};

/// Many boxes in one paragraph, of which the last decides, cost no more than one.
std::vector<ChecklistParagraph> checklistParagraphs(NSMutableAttributedString& text)
{
    std::vector<ChecklistParagraph> paragraphs;
    const auto collect = [&](const NSAny& value, NSRange run) {
        const auto box = value.object<CVLChecklistTextAttachment>();
        if (!box)
            return;
        const auto isSame = !paragraphs.empty() && paragraphs.back().isOne
            && NSMaxRange(run) <= NSMaxRange(paragraphs.back().range);
        if (!isSame) {
            const auto range = text.paragraphRangeForRange(run);
            paragraphs.push_back({range, text.paragraphRangeAtIndex(run.location) == range, nullptr});
        }
        paragraphs.back().style = box->checklistParagraphStyle();
    };
    enumerateValues(text, NSAttachmentAttributeName, {0, text.length()}, collect);
    return paragraphs;
}

/// Units between where one divider and the next is put, in all. A list as writers make it needs no more than
/// the text has; one that jumps back and forth would make each step cost as much as the text.
constexpr NSUInteger kMostUnitsBetweenDividers = NSUInteger{1} << 28U;

/// Dividers that stand for no text. Writers make none, and each makes the text larger, while a list may name
/// one range a million times in as many bytes.
constexpr NSUInteger kMostEmptyDividers = 10'000;

/// Visits the ranges that become dividers, the last first, in the text as those before have left it.
template <typename Visitor>
void enumerateDividers(NSUInteger length, const std::vector<NSRange>& ranges, Visitor visit)
{
    auto unitsLeft = length + kMostUnitsBetweenDividers;
    auto emptyLeft = kMostEmptyDividers;
    auto dividersLeft = length + kMostEmptyDividers;
    auto last = length;
    for (auto next = ranges.rbegin(); next != ranges.rend(); ++next) {
        const auto range = *next;
        if (range.location >= length || range.length >= length - range.location)
            continue;
        if (dividersLeft == 0 || (range.length == 0 && emptyLeft == 0))
            return NSLog("The dividers of a note are too many; some stay as text");
        const auto distance = std::max(range.location, last) - std::min(range.location, last);
        if (distance > unitsLeft)
            return NSLog("The dividers of a note are in no order; some stay as text");
        unitsLeft -= distance;
        emptyLeft -= range.length == 0 ? 1 : 0;
        --dividersLeft;
        last = range.location;
        visit(range);
        length = length - range.length + 1;
    }
}

void restoreHighlightOfType(NSMutableAttributedString& text, NSInteger type, NSRange range)
{
    const auto color
        = type == kNoHighlightColorType ? nullptr : CVLExtensions::colorForHighlightColorType(type);
    if (!color)
        return;
    text.addAttributes(
        {{std::u16string(NSBackgroundColorAttributeName), CVLExtensions::highlightBackgroundColor(color)},
         {std::u16string(NSForegroundColorAttributeName), CVLExtensions::highlightForegroundColor(color)},
         {std::u16string(CVLHighlightTextAttributeName), type}},
        range);
}

void restoreHighlightOfColors(NSMutableAttributedString& text, NSRange range)
{
    enumerateValues(text, NSBackgroundColorAttributeName, range, [&text](const NSAny& value, NSRange run) {
        const auto color = value.object<NSColor>();
        const auto type = color ? CVLExtensions::highlightColorType(*color) : 0;
        if (type != 0)
            text.addAttribute(CVLHighlightTextAttributeName, type, run);
    });
}

} // namespace

std::optional<NSMutableAttributedString> unarchivedNoteText(std::string_view archive, NSError& error)
{
    auto text = decodedText(archive, error);
    if (!text)
        NSLog("Could not decode note text: {}", error.localizedDescription());
    return text;
}

void removeWhiteBackgrounds(NSMutableAttributedString& text)
{
    const auto white = NSColor::whiteColor();
    const auto remove = [&](const NSAny& value, NSRange run) {
        const auto color = value.object<NSColor>();
        if (color && CVLExtensions::isEqualToColorCVLVersion(*color, *white))
            text.removeAttribute(NSBackgroundColorAttributeName, run);
    };
    enumerateValues(text, NSBackgroundColorAttributeName, {0, text.length()}, remove);
}

void restoreChecklistParagraphs(NSMutableAttributedString& text)
{
    for (const auto& paragraph : checklistParagraphs(text))
        text.addAttribute(NSParagraphStyleAttributeName, paragraph.style, paragraph.range);
}

void restoreDividers(NSMutableAttributedString& text, const std::vector<NSRange>& ranges)
{
    enumerateDividers(text.length(), ranges, [&text](NSRange range) {
        text.replaceCharactersInRange(
            range, NSAttributedString::attributedStringWithAttachment(CVLDividerTextAttachment::init()));
    });
}

std::u16string charactersWithDividers(std::u16string_view characters, const std::vector<NSRange>& ranges)
{
    // In a text the characters need not move for each divider.
    NSMutableAttributedString text{std::u16string(characters)};
    const NSAttributedString divider(std::u16string(1, NSAttachmentCharacter));
    enumerateDividers(text.length(), ranges,
                      [&](NSRange range) { text.replaceCharactersInRange(range, divider); });
    return std::u16string(text.string());
}

void restoreHighlights(NSMutableAttributedString& text, bool usesColorTypes)
{
    const auto restore = [&](const NSAny& value, NSRange run) {
        if (usesColorTypes)
            restoreHighlightOfType(text, value.integerValue(), run);
        else
            restoreHighlightOfColors(text, run);
    };
    enumerateValues(text, CVLHighlightTextAttributeName, {0, text.length()}, restore);
}
