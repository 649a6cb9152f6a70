#include "documents/NoteImport.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/FileAttachments.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/DynamicColours.h"
#include "richtext/Highlights.h"
#include "richtext/ListRecognition.h"
#include "richtext/TrailingTables.h"
#include "richtext/WebPageCleanup.h"
#include "styles/CVLNoteTextStyle.h"

namespace {

constexpr char16_t kLineBreak = 0x2028;

enum class DividerLines { All, Centred };

DividerLines dividerLinesOf(DocumentKind kind)
{
    const bool hasRules = kind == DocumentKind::Markdown || kind == DocumentKind::Page;
    return hasRules ? DividerLines::Centred : DividerLines::All;
}

void addBodyFont(NSMutableAttributedString& text)
{
    const auto font = CVLNoteTextStyle::bodyNoteTextStyle()->font();
    const auto add = [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        if (value.isNil())
            text.addAttribute(NSFontAttributeName, font, run);
    };
    text.enumerateAttribute(NSFontAttributeName, {0, text.length()}, {}, add);
}

bool isCentred(const NSAttributedString& text, NSUInteger location)
{
    const auto style = text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
    return style && style->alignment() == NSTextAlignment::Center;
}

/// Whether the line is a paragraph, and not one of several that line breaks make of it.
bool isParagraph(const NSAttributedString& text, NSRange line)
{
    const auto characters = text.string();
    const auto end = NSMaxRange(line);
    return (line.location == 0 || characters[line.location - 1] != kLineBreak)
        && (end == characters.size() || characters[end] != kLineBreak);
}

/// Not convertTextToDividers, whose dividers bring line ends of their own with them: a text that is imported
/// and exported again would grow each time.
void makeDividers(NSMutableAttributedString& text, DividerLines lines)
{
    for (NSUInteger location = 0; location < text.length();) {
        const auto line = text.lineContentRangeAtIndex(location);
        location = NSMaxRange(text.lineRangeAtIndex(location));
        const bool isDivider = line.length == CVLDividerReplacementString.size()
            && text.hasPrefixAtIndex(CVLDividerReplacementString, line.location) && isParagraph(text, line)
            && (lines == DividerLines::All || isCentred(text, line.location));
        if (!isDivider)
            continue;
        const auto divider
            = NSAttributedString::attributedStringWithAttachment(CVLDividerTextAttachment::init());
        text.replaceCharactersInRange(line, divider);
        location -= line.length - divider.length();
    }
    const auto length = text.length();
    if (length > 0
        && text.attribute(NSAttachmentAttributeName, length - 1).object<CVLDividerTextAttachment>())
        text.appendAttributedString(NSAttributedString(u"\n"));
}

} // namespace

NSAttributedString noteTextOfDocument(const Document& document)
{
    if (document.kind == DocumentKind::Note)
        return document.text;
    NSMutableAttributedString text(document.text);
    if (document.kind == DocumentKind::Page)
        DynamicColors::cleanupWebPageText(text);
    DynamicColors::checkForTextListsAndConvertIfNecessary(text);
    DynamicColors::convertTextListsToChecklistAttachments(text);
    makeDividers(text, dividerLinesOf(document.kind));
    addBodyFont(text);
    DynamicColors::replaceFileAttachmentsInRange(text, {0, text.length()});
    DynamicColors::convertNSTextHighlightsToCorvelHighlights(text);
    DynamicColors::convertToDynamicColors(text);
    DynamicColors::fixTrailingTables(text);
    return text.copy();
}
