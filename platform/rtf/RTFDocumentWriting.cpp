#include "platform/rtf/RTFDocumentWriting.h"

#include "platform/foundation/NSValue.h"
#include "platform/rtf/RTFDocumentWords.h"
#include "platform/rtf/RTFParagraphFormat.h"
#include "platform/rtf/RTFUnits.h"

#include <optional>

namespace {

const NSAny* valueOf(const NSAny::Dictionary& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? nullptr : &found->second;
}

std::optional<NSSize> sizeOf(const NSAny::Dictionary& attributes, std::u16string_view name)
{
    const auto* const any = valueOf(attributes, name);
    const auto value = any ? any->object<NSValue>() : nullptr;
    const auto* const size = value ? value->get<NSSize>() : nullptr;
    return size ? std::optional(*size) : std::nullopt;
}

std::optional<std::int32_t> numberOf(const NSAny::Dictionary& attributes, std::u16string_view name,
                                     double scale)
{
    const auto* const value = valueOf(attributes, name);
    return value && value->isNumber() ? std::optional(wholeNumber(value->doubleValue() * scale))
                                      : std::nullopt;
}

/// The text of an entry; several are parted by commas.
std::u16string textOf(const NSAny& value)
{
    if (const auto* const text = value.string())
        return *text;
    std::u16string joined;
    const auto* const entries = value.array();
    for (const auto& entry : entries ? *entries : NSAny::Array()) {
        if (!entry.string())
            continue;
        if (!joined.empty())
            joined += kKeywordSeparator;
        joined += *entry.string();
    }
    return joined;
}

void writeInformation(RTFOutput& output, const NSAny::Dictionary& attributes)
{
    RTFOutput entries;
    for (const auto& entry : kRTFInformationWords) {
        const auto* const value = valueOf(attributes, entry.attribute);
        const auto text = value ? textOf(*value) : std::u16string();
        if (text.empty())
            continue;
        entries.raw(entry.isOptional ? "\n{\\*" : "\n{");
        entries.word(entry.word);
        entries.blank();
        entries.text(text);
        entries.endGroup();
    }
    if (entries.bytes().empty())
        return;
    output.raw("{\\info");
    output.raw(entries.bytes());
    output.endGroup();
}

void writeSize(RTFOutput& output, std::string_view widthWord, std::string_view heightWord,
               const std::optional<NSSize>& size)
{
    if (!size)
        return;
    output.word(widthWord, twipsFromPoints(size->width));
    output.word(heightWord, twipsFromPoints(size->height));
}

void writeNumber(RTFOutput& output, std::string_view word, const std::optional<std::int32_t>& number)
{
    if (number)
        output.word(word, *number);
}

} // namespace

RTFPage pageOf(const NSAny::Dictionary& documentAttributes)
{
    const auto paper = sizeOf(documentAttributes, NSPaperSizeDocumentAttribute);
    const auto margin = [&documentAttributes](std::u16string_view name) {
        return numberOf(documentAttributes, name, kTwipsOfPoint).value_or(kUsualSideMargin);
    };
    RTFPage page;
    page.textWidth = (paper ? twipsFromPoints(paper->width) : kUsualPaperWidth)
        - margin(NSLeftMarginDocumentAttribute) - margin(NSRightMarginDocumentAttribute);
    page.defaultTab
        = numberOf(documentAttributes, NSDefaultTabIntervalDocumentAttribute, kTwipsOfPoint).value_or(0);
    return page;
}

void writeDocumentAttributes(RTFOutput& output, const NSAny::Dictionary& documentAttributes)
{
    const auto number = [&documentAttributes](std::u16string_view name, double scale) {
        return numberOf(documentAttributes, name, scale);
    };
    const auto start = output.bytes().size();
    writeInformation(output, documentAttributes);
    writeSize(output, "paperw", "paperh", sizeOf(documentAttributes, NSPaperSizeDocumentAttribute));
    for (const auto& margin : kRTFMarginWords)
        writeNumber(output, margin.word, number(margin.attribute, kTwipsOfPoint));
    writeSize(output, "vieww", "viewh", sizeOf(documentAttributes, NSViewSizeDocumentAttribute));
    writeNumber(output, "viewkind", number(NSViewModeDocumentAttribute, 1));
    writeNumber(output, "viewscale", number(NSViewZoomDocumentAttribute, 1));
    writeNumber(output, "readonlydoc", number(NSReadOnlyDocumentAttribute, 1));
    if (const auto factor = number(NSHyphenationFactorDocumentAttribute, kHyphenationUnits)) {
        output.word("hyphauto", *factor > 0 ? 1 : 0);
        output.word("hyphfactor", *factor);
    }
    if (output.bytes().size() > start)
        output.lineBreak();
    if (const auto interval = number(NSDefaultTabIntervalDocumentAttribute, kTwipsOfPoint)) {
        output.word("deftab", *interval);
        output.lineBreak();
    }
}
