#include "platform/word/WordTextAttributes.h"

#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/word/WordColors.h"
#include "platform/word/WordUnderlines.h"

#include <utility>

namespace {

/// What a document that says nothing of its text is set in.
constexpr std::string_view kUsualFamily = "Times New Roman";
constexpr double kUsualSize = 10;
constexpr std::size_t kMostKept = 2'000;
constexpr std::size_t kMostMade = 50'000;

struct ScriptRange {
    char16_t first;
    char16_t last;
    WordScript script;
};

constexpr std::array<ScriptRange, 8> kScriptRanges{{{0x0590, 0x08FF, WordScript::Complex},
                                                    {0x0900, 0x109F, WordScript::Complex},
                                                    {0x1100, 0x11FF, WordScript::EastAsian},
                                                    {0x1780, 0x17FF, WordScript::Complex},
                                                    {0x2E80, 0xD7FF, WordScript::EastAsian},
                                                    {0xF900, 0xFAFF, WordScript::EastAsian},
                                                    {0xFB1D, 0xFDFF, WordScript::Complex},
                                                    {0xFE70, 0xFEFC, WordScript::Complex}}};

/// A URL; a text when it is none.
NSAny linkValue(const std::string& address)
{
    const auto url = NSURL::URLWithString(address);
    return url ? NSAny(*url) : NSAny(UTF16FromUTF8(address));
}

void set(NSAttributes& attributes, std::u16string_view name, NSAny value)
{
    if (value)
        attributes.insert_or_assign(std::u16string(name), std::move(value));
}

void setLines(NSAttributes& attributes, const WordRunProperties& properties)
{
    if (const auto underline = properties.underline.value_or(0); underline != 0) {
        set(attributes, NSUnderlineStyleAttributeName, underline);
        set(attributes, NSUnderlineColorAttributeName, NSAny(colorOfWordColor(properties.underlineColor)));
    }
    if (properties.isDoubleStruck.value_or(false))
        set(attributes, NSStrikethroughStyleAttributeName, kWordDoubleLine);
    else if (properties.isStruck.value_or(false))
        set(attributes, NSStrikethroughStyleAttributeName, kWordSingleLine);
}

} // namespace

WordScript scriptOfText(std::u16string_view text)
{
    for (const auto unit : text) {
        const bool isWestern = (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z')
            || (unit >= 0x00C0 && unit < kScriptRanges.front().first);
        if (isWestern)
            return WordScript::Western;
        for (const auto& range : kScriptRanges) {
            if (unit >= range.first && unit <= range.last)
                return range.script;
        }
    }
    return WordScript::Western;
}

const NSAttributes& WordTextAttributes::attributes(const WordTextLook& look, WordScript script)
{
    const auto key = std::make_pair(script, look);
    if (const auto found = m_made.find(key); found != m_made.end())
        return found->second;
    if (m_madeCount >= kMostMade)
        return m_last;
    if (m_made.size() >= kMostKept)
        m_made.clear();
    ++m_madeCount;
    m_last = make(look, script);
    return m_made.emplace(key, m_last).first->second;
}

NSFont::Ref WordTextAttributes::fontFor(const WordRunProperties& properties, WordScript script)
{
    const bool isComplex = properties.isComplex.value_or(script == WordScript::Complex);
    auto family = properties.family.value_or(std::string(kUsualFamily));
    if (isComplex)
        family = properties.complexFamily.value_or(family);
    else if (script == WordScript::EastAsian)
        family = properties.eastAsianFamily.value_or(family);
    auto size = properties.size.value_or(kUsualSize);
    if (isComplex)
        size = properties.complexSize.value_or(size);
    return m_fonts.font(family, size, properties.isBold.value_or(false), properties.isItalic.value_or(false));
}

NSAttributes WordTextAttributes::make(const WordTextLook& look, WordScript script)
{
    const auto& properties = look.properties;
    NSAttributes attributes;
    set(attributes, NSFontAttributeName, NSAny(fontFor(properties, script)));
    set(attributes, NSForegroundColorAttributeName, NSAny(colorOfWordColor(properties.color)));
    const auto highlight = colorOfWordColor(properties.highlight);
    set(attributes, NSBackgroundColorAttributeName,
        NSAny(highlight ? highlight : colorOfWordColor(properties.shading)));
    setLines(attributes, properties);
    if (const auto level = properties.superscript.value_or(0); level != 0)
        set(attributes, NSSuperscriptAttributeName, level);
    if (const auto offset = properties.baselineOffset.value_or(0); offset != 0)
        set(attributes, NSBaselineOffsetAttributeName, offset);
    if (const auto kern = properties.kern.value_or(0); kern != 0)
        set(attributes, NSKernAttributeName, kern);
    if (!look.link.empty())
        set(attributes, NSLinkAttributeName, linkValue(look.link));
    if (!look.toolTip.empty())
        set(attributes, NSToolTipAttributeName, UTF16FromUTF8(look.toolTip));
    return attributes;
}
