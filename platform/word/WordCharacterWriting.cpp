#include "platform/word/WordCharacterWriting.h"

#include "platform/html/HTMLHighlights.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/word/WordColors.h"
#include "platform/word/WordUnderlines.h"
#include "platform/word/WordUnits.h"

#include <algorithm>

namespace {

struct HighlightGround {
    std::string_view className;
    std::uint32_t rgb;
};

// What the platform's highlights come to on white; the first is that of the default scheme.
constexpr std::array<HighlightGround, 6> kHighlightGrounds{{{"", 0xFFEDA6},
                                                            {"orange", 0xFFDFB2},
                                                            {"mint", 0xB2EEEC},
                                                            {"blue", 0xB2D7FF},
                                                            {"pink", 0xFFC0CC},
                                                            {"purple", 0xE7CBF5}}};

/// Nil when there is none of the name.
const NSAny& valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    static const NSAny kNil;
    const auto found = attributes.find(name);
    return found == attributes.end() ? kNil : found->second;
}

std::optional<WordColor> colorAt(const NSAttributes& attributes, std::u16string_view name)
{
    return wordColorOf(valueOf(attributes, name).object<NSColor>());
}

std::optional<WordColor> groundOf(const NSAttributes& attributes)
{
    const auto highlight = highlightClass(attributes);
    if (!highlight)
        return colorAt(attributes, NSBackgroundColorAttributeName);
    const auto* const found = std::find_if(
        kHighlightGrounds.begin(), kHighlightGrounds.end(),
        [&highlight](const HighlightGround& ground) { return ground.className == *highlight; });
    return WordColor{false, found == kHighlightGrounds.end() ? kHighlightGrounds.front().rgb : found->rgb};
}

void writeFont(WordXML& xml, const WordFontLook& look, const WordFontLook& style)
{
    if (look.family != style.family)
        writeWordFamily(xml, look.family);
    if (look.isBold != style.isBold) {
        xml.toggle("w:b", look.isBold);
        xml.toggle("w:bCs", look.isBold);
    }
    if (look.isItalic != style.isItalic) {
        xml.toggle("w:i", look.isItalic);
        xml.toggle("w:iCs", look.isItalic);
    }
}

void writeStrike(WordXML& xml, std::int64_t style)
{
    if (style != 0)
        xml.property(style == kWordDoubleLine ? "w:dstrike" : "w:strike");
}

void writeUnless0(WordXML& xml, std::string_view name, std::int64_t value)
{
    if (value != 0)
        xml.property(name, value);
}

void writeUnderline(WordXML& xml, const NSAttributes& attributes)
{
    constexpr std::int64_t kStyleMask = 0xFFFF;
    const auto style = valueOf(attributes, NSUnderlineStyleAttributeName).integerValue() & kStyleMask;
    if (style == 0)
        return;
    xml.raw("<w:u");
    xml.attribute("w:val", wordUnderlineName(static_cast<int>(style)));
    if (const auto color = colorAt(attributes, NSUnderlineColorAttributeName))
        xml.attribute("w:color", std::string_view(wordColorDigits(*color)));
    xml.raw("/>");
}

} // namespace

// The order of the elements is that of the format's schema.
void writeWordCharacterProperties(WordXML& xml, const NSAttributes& attributes, const WordFontLook& style,
                                  bool isLink)
{
    constexpr std::int64_t kMostPosition = 3'168;
    if (isLink)
        xml.property("w:rStyle", std::string_view("Hyperlink"));
    const auto look = fontLookOf(attributes);
    writeFont(xml, look, style);
    writeStrike(xml, valueOf(attributes, NSStrikethroughStyleAttributeName).integerValue());
    if (const auto color = colorAt(attributes, NSForegroundColorAttributeName))
        xml.property("w:color", std::string_view(wordColorDigits(*color)));
    writeUnless0(xml, "w:spacing", wordTwips(valueOf(attributes, NSKernAttributeName).doubleValue()));
    const auto offset = valueOf(attributes, NSBaselineOffsetAttributeName).doubleValue();
    writeUnless0(xml, "w:position",
                 std::isnan(offset) ? 0 : wordUnits(offset * 2, -kMostPosition, kMostPosition));
    if (look.size != style.size)
        writeWordFontSize(xml, look.size);
    writeUnderline(xml, attributes);
    if (const auto ground = groundOf(attributes); ground && !ground->isAutomatic)
        writeWordShading(xml, *ground);
    if (const auto level = valueOf(attributes, NSSuperscriptAttributeName).integerValue(); level != 0)
        xml.property("w:vertAlign", std::string_view(level > 0 ? "superscript" : "subscript"));
}
