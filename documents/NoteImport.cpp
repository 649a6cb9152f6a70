#include "documents/NoteImport.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/FileAttachments.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSFontManager.h"
#include "platform/text/NSParagraphStyle.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/DynamicColours.h"
#include "richtext/Highlights.h"
#include "richtext/ListRecognition.h"
#include "richtext/TrailingTables.h"
#include "richtext/WebPageCleanup.h"
#include "styles/CVLNoteTextStyle.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr char16_t kLineBreak = 0x2028;
constexpr std::int64_t kMostSuperscriptLevels = 3;
/// Of the font's size.
constexpr double kSuperscriptSize = 0.75;
constexpr double kSuperscriptRise = 1.0 / 3;
constexpr double kSubscriptFall = 1.0 / 5;

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

std::int64_t superscriptLevel(const NSAttributes& attributes)
{
    const auto found = attributes.find(NSSuperscriptAttributeName);
    return found == attributes.end()
        ? 0
        : std::clamp<std::int64_t>(found->second.integerValue(), -kMostSuperscriptLevels,
                                   kMostSuperscriptLevels);
}

/// Text that has a font. Notes do not store the attribute for it, but how high text stands and how large.
void raiseSuperscripts(NSMutableAttributedString& text)
{
    const auto superscripted = text.copy();
    const auto raise = [&text](NSAttributes attributes, NSRange run) {
        const auto level = static_cast<double>(superscriptLevel(attributes));
        attributes.erase(std::u16string(NSSuperscriptAttributeName));
        auto& font = attributes[std::u16string(NSFontAttributeName)];
        const auto own = font.object<NSFont>();
        if (level == 0 || !own)
            return text.setAttributes(attributes, run);
        const auto size = own->pointSize();
        font = NSFontManager::sharedFontManager().convertFontToSize(own, size * kSuperscriptSize);
        auto& offset = attributes[std::u16string(NSBaselineOffsetAttributeName)];
        offset = offset.doubleValue() + level * size * (level > 0 ? kSuperscriptRise : kSubscriptFall);
        text.setAttributes(attributes, run);
    };
    superscripted.enumerateAttributesInRange(
        {0, text.length()}, {}, [&raise](const NSAttributes& attributes, NSRange run, bool& /*stop*/) {
            if (attributes.find(NSSuperscriptAttributeName) != attributes.end())
                raise(attributes, run);
        });
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
    raiseSuperscripts(text);
    DynamicColors::replaceFileAttachmentsInRange(text, {0, text.length()});
    DynamicColors::convertNSTextHighlightsToCorvelHighlights(text);
    DynamicColors::convertToDynamicColors(text);
    DynamicColors::fixTrailingTables(text);
    return text.copy();
}
