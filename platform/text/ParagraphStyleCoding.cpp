#include "platform/text/ParagraphStyleCoding.h"

#include "platform/text/CoderValues.h"
#include "platform/text/NSTextTable.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace {

struct RealKey {
    std::string_view key;
    double ParagraphStyleCoding::Values::*value;
};

/// The lengths, all 0 when absent.
constexpr std::array kRealKeys{
    RealKey{"NSLineSpacing", &ParagraphStyleCoding::Values::lineSpacing},
    RealKey{"NSParagraphSpacing", &ParagraphStyleCoding::Values::paragraphSpacing},
    RealKey{"NSParagraphSpacingBefore", &ParagraphStyleCoding::Values::paragraphSpacingBefore},
    RealKey{"NSHeadIndent", &ParagraphStyleCoding::Values::headIndent},
    RealKey{"NSFirstLineHeadIndent", &ParagraphStyleCoding::Values::firstLineHeadIndent},
    RealKey{"NSTailIndent", &ParagraphStyleCoding::Values::tailIndent},
    RealKey{"NSMinLineHeight", &ParagraphStyleCoding::Values::minimumLineHeight},
    RealKey{"NSMaxLineHeight", &ParagraphStyleCoding::Values::maximumLineHeight},
    RealKey{"NSLineHeightMultiple", &ParagraphStyleCoding::Values::lineHeightMultiple},
    RealKey{"NSDefaultTabInterval", &ParagraphStyleCoding::Values::defaultTabInterval},
};

NSLineBreakMode lineBreakModeFromNumber(std::int64_t number)
{
    return number >= 0 && number <= 5 ? static_cast<NSLineBreakMode>(number) : NSLineBreakMode::WordWrapping;
}

/// Archives hold the direction plus one, so that natural, which is -1, is their 0.
NSWritingDirection writingDirectionFromNumber(std::int64_t number)
{
    if (number == 1)
        return NSWritingDirection::LeftToRight;
    return number == 2 ? NSWritingDirection::RightToLeft : NSWritingDirection::Natural;
}

/// The level, which archives hold as a real.
NSInteger headerLevelFromReal(double level)
{
    constexpr double kBound = 1'000'000;
    return std::fabs(level) < kBound ? static_cast<NSInteger>(level) : 0;
}

float decodeFactor(NSCoder& coder, std::string_view key, float absent)
{
    const double value = decodeReal(coder, key, absent);
    return std::fabs(value) <= std::numeric_limits<float>::max() ? static_cast<float>(value) : absent;
}

} // namespace

NSAny ParagraphStyleCoding::decode(NSCoder& coder)
{
    NSMutableParagraphStyle style;
    auto& values = style.m_values;
    for (const auto& [key, value] : kRealKeys)
        values.*value = decodeReal(coder, key);
    decodeKinds(coder, values);
    decodeObjectLists(coder, values);
    return style.copy();
}

void ParagraphStyleCoding::decodeKinds(NSCoder& coder, Values& values)
{
    values.alignment = textAlignmentFromNumber(coder.decodeIntegerForKey("NSAlignment"));
    values.lineBreakMode = lineBreakModeFromNumber(coder.decodeIntegerForKey("NSLineBreakMode"));
    values.lineBreakStrategy = static_cast<NSUInteger>(coder.decodeIntegerForKey("NSLineBreakStrategy"));
    values.baseWritingDirection = writingDirectionFromNumber(coder.decodeIntegerForKey("NSWritingDirection"));
    values.allowsTightening = decodeFlag(coder, "NSAllowsTighteningForTruncation");
    values.usesDefaultHyphenation = decodeFlag(coder, "NSUsesDefaultHyphenation");
    values.headerLevel = headerLevelFromReal(decodeReal(coder, "NSHeaderLevel"));
    values.hyphenationFactor = decodeFactor(coder, "NSHyphenationFactor", 0);
    // Narrowed, so that the default that some writers put out widened, 0.05000000074505806, is the default.
    values.tighteningFactor
        = decodeFactor(coder, "NSTighteningFactorForTruncation", NSParagraphStyle::kDefaultTighteningFactor);
}

void ParagraphStyleCoding::decodeObjectLists(NSCoder& coder, Values& values)
{
    // Nil, like no value, is the default tab stops; an empty array is none.
    if (auto tabStops = decodeObjects<NSTextTab>(coder, "NSTabStops", {&NSTextTab::classObject()}))
        values.tabStops = std::move(*tabStops);
    if (auto lists = decodeObjects<NSTextList>(coder, "NSTextLists", {&NSTextList::classObject()}))
        values.textLists = std::move(*lists);
    if (auto blocks = decodeObjects<NSTextBlock>(coder, "NSTextBlocks", {&NSTextBlock::classObject()}))
        values.textBlocks = std::move(*blocks);
}

void ParagraphStyleCoding::encode(const NSParagraphStyle& style, NSCoder& coder)
{
    const auto& values = style.m_values;
    encodeTabStops(values, coder);
    encodeKinds(values, coder);
    for (const auto& [key, value] : kRealKeys)
        encodeRealUnlessZero(coder, values.*value, key);
    encodeObjectsUnlessEmpty(coder, values.textBlocks, "NSTextBlocks");
    encodeObjectsUnlessEmpty(coder, values.textLists, "NSTextLists");
}

void ParagraphStyleCoding::encodeKinds(const Values& values, NSCoder& coder)
{
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(values.alignment), "NSAlignment");
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(values.lineBreakMode), "NSLineBreakMode");
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(values.lineBreakStrategy),
                            "NSLineBreakStrategy");
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(values.baseWritingDirection) + 1,
                            "NSWritingDirection");
    encodeIntegerUnlessZero(coder, values.allowsTightening ? 1 : 0, "NSAllowsTighteningForTruncation");
    encodeTrue(coder, values.usesDefaultHyphenation, "NSUsesDefaultHyphenation");
    encodeRealUnlessZero(coder, static_cast<double>(values.headerLevel), "NSHeaderLevel");
    if (values.hyphenationFactor != 0)
        coder.encodeFloat(values.hyphenationFactor, "NSHyphenationFactor");
    if (values.tighteningFactor != NSParagraphStyle::kDefaultTighteningFactor)
        coder.encodeFloat(values.tighteningFactor, "NSTighteningFactorForTruncation");
}

void ParagraphStyleCoding::encodeTabStops(const Values& values, NSCoder& coder)
{
    // The one value that is always there: nil says "the default ones", which an array would spell out.
    const auto& stops = values.tabStops;
    const bool areDefault = values.hasTabStops(NSParagraphStyle::defaultTabStops());
    coder.encodeObject(areDefault ? NSAny() : NSAny(NSAny::Array(stops.begin(), stops.end())), "NSTabStops");
}
