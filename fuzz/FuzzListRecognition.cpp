// Any text, in any styles and with attachments anywhere, goes through the transforms that make and unmake
// lists, checklists and dividers. Nothing of it is lost, attachments stay on their characters, and what was
// done once is not done again.
//
// In the input "@" and a letter begin another style or are an attachment; see the two tables.

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "fuzz/UTF16Input.h"
#include "paragraphs/ParagraphStyles.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSTextTable.h"
#include "richtext/AttachmentNames.h"
#include "richtext/ChecklistItems.h"
#include "richtext/ChecklistMarkdown.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/Dividers.h"
#include "richtext/ListRecognition.h"
#include "richtext/TextListMarkers.h"
#include "richtext/TrailingTables.h"
#include "richtext/WebPageCleanup.h"

#include <algorithm>
#include <cstdlib>

using namespace DynamicColors;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

NSMutableParagraphStyle inLists(std::u16string_view markerFormat, std::size_t depth)
{
    auto style = CVLExtensions::listParagraphStyle();
    style.setTextLists(NSParagraphStyle::TextLists(depth, std::make_shared<const NSTextList>(markerFormat)));
    return style;
}

NSMutableParagraphStyle inTable()
{
    static const auto table = std::make_shared<const NSTextTable>();
    NSMutableParagraphStyle style;
    style.setTextBlocks({std::make_shared<const NSTextTableBlock>(table, 0, 1, 0, 1)});
    return style;
}

NSParagraphStyle::Ref styleFor(char16_t letter)
{
    NSMutableParagraphStyle spaced;
    spaced.setParagraphSpacing(1);
    switch (letter) {
    case u'l':
        return CVLExtensions::listParagraphStyle().copy();
    case u'c':
        return inLists(NSTextListMarkerCheck, 1).copy();
    case u'C':
        return inLists(NSTextListMarkerCheck, 9).copy();
    case u'o':
        return inLists(NSTextListMarkerCircle, 2).copy();
    case u'd':
        return inLists(NSTextListMarkerDecimal, 1).copy();
    case u's':
        return spaced.copy();
    case u't':
        return inTable().copy();
    default:
        return nullptr;
    }
}

NSAny attachmentFor(char16_t letter)
{
    switch (letter) {
    case u'x':
    case u'X': {
        const auto box = CVLChecklistTextAttachment::init();
        box->setOn(letter == u'X');
        box->setIndentationLevel(letter == u'X' ? 1 : 3);
        return box;
    }
    case u'-':
        return CVLDividerTextAttachment::init();
    case u'f':
        return std::make_shared<NSTextAttachment>();
    default:
        return nullptr;
    }
}

NSMutableAttributedString textOf(const std::u16string& input)
{
    NSMutableAttributedString text;
    NSAttributes attributes{{std::u16string(NSFontAttributeName), NSFont::fontWithName(u"Menlo-Bold", 11)}};
    std::size_t copied = 0;
    for (std::size_t place = 0; place + 1 < input.size(); ++place) {
        if (input[place] != u'@')
            continue;
        text.appendAttributedString(NSAttributedString(input.substr(copied, place - copied), attributes));
        const auto letter = input[++place];
        copied = place + 1;
        if (const auto attachment = attachmentFor(letter)) {
            text.appendAttributedString(
                NSAttributedString::attributedStringWithAttachment(attachment, attributes));
            continue;
        }
        attributes.erase(std::u16string(NSParagraphStyleAttributeName));
        if (const auto style = styleFor(letter))
            attributes.emplace(NSParagraphStyleAttributeName, style);
    }
    text.appendAttributedString(NSAttributedString(input.substr(copied), attributes));
    return text;
}

/// Attachments stand on their characters; how many of the class there are.
template <typename Class> std::size_t countAttachments(const NSAttributedString& text)
{
    std::size_t count = 0;
    for (NSUInteger index = 0; index < text.length(); ++index) {
        const auto value = text.attribute(NSAttachmentAttributeName, index);
        require(value.isNil() || text.characterAtIndex(index) == NSAttachmentCharacter);
        if (value.object<Class>())
            ++count;
    }
    return count;
}

std::size_t countBoxes(const NSAttributedString& text)
{
    return countAttachments<CVLChecklistTextAttachment>(text);
}

template <typename Operation>
NSMutableAttributedString result(const NSAttributedString& text, Operation operation)
{
    NSMutableAttributedString changed(text);
    operation(changed);
    (void)countBoxes(changed);
    return changed;
}

/// Whether the operation, done again, changes nothing.
template <typename Operation> void requireDone(const NSAttributedString& text, Operation operation)
{
    require(result(text, operation) == text);
}

void checkChecklists(const NSAttributedString& text)
{
    const auto boxes = result(text, convertTextListsToChecklistAttachments);
    const auto made = countBoxes(boxes) - countBoxes(text);
    // A marker of three units becomes a box of one, or a box is put before the text.
    require(boxes.length() <= text.length() + made && boxes.length() + 2 * made >= text.length());
    requireDone(boxes, convertTextListsToChecklistAttachments);

    const auto lists = result(boxes, convertChecklistAttachmentsToTextLists);
    require(countBoxes(lists) == 0 && lists.length() == boxes.length() + 2 * countBoxes(boxes));
    requireDone(lists, convertChecklistAttachmentsToTextLists);

    const auto markdown = result(boxes, convertChecklistAttachmentsToMarkdownSyntax);
    require(countBoxes(markdown) == 0 && markdown.length() >= boxes.length() + 5 * countBoxes(boxes));
    require(completedChecklistItems(boxes).size() + outstandingChecklistItems(boxes).size()
            <= countBoxes(boxes));
}

void checkDividers(const NSAttributedString& text)
{
    const auto dividers = result(text, convertTextToDividers);
    require(dividers.length() == text.length());
    requireDone(dividers, convertTextToDividers);
    const auto asterisks = result(dividers, convertDividersToText);
    require(countAttachments<CVLDividerTextAttachment>(asterisks) == 0);
    require(countAttachments<NSTextAttachment>(attributedStringWithoutAttachments(text)) == 0);
    require(countAttachments<NSTextAttachment>(attributedStringByReplacingAttachmentsWithNames(text)) == 0);
}

void checkCleanup(const NSAttributedString& text)
{
    NSMutableAttributedString cleaned(text);
    cleanupTextFromWebPageInRange(cleaned, {0, cleaned.length()}, NSFont::fontWithName(u"HelveticaNeue", 12),
                                  true, true, true);
    (void)countBoxes(cleaned);
    require(cleaned.length() >= text.length() && cleaned.length() <= 2 * text.length());
    requireDone(result(text, fixTrailingTables), fixTrailingTables);
}

void checkLists(const NSAttributedString& text)
{
    const auto recognized = result(text, checkForTextListsAndConvertIfNecessary);
    require(recognized.string() == text.string());
    requireDone(recognized, checkForTextListsAndConvertIfNecessary);
    const auto marked = result(recognized, addTextMarkersIfNecessary);
    requireDone(marked, addTextMarkersIfNecessary);
    checkChecklists(recognized);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kLongest = 4000;
    NSTextList::setIncludesTextListMarkers(false);
    const auto text = textOf(UTF16Input(data, std::min(size, kLongest)));
    checkLists(text);
    checkChecklists(text);
    checkDividers(text);
    checkCleanup(text);
    return 0;
}
