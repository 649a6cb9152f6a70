#include "platform/word/WordListMarkers.h"

#include "platform/text/ListNumerals.h"
#include "platform/text/NSTextList.h"

#include <algorithm>
#include <utility>

namespace {

/// Symbol fonts have their signs here, by their code.
constexpr char16_t kFirstSymbol = 0xF000;
constexpr char16_t kLastSymbol = 0xF0FF;
/// Letters that are repeated longer are hardly read, and cost their length each.
constexpr NSInteger kMostRepeatedLetters = 10;

struct Sign {
    char16_t code;
    std::u16string_view format;
};

// A circle is no bullet here: in notes it is a box to tick, which in documents is a ballot box.
constexpr std::array<Sign, 31> kSigns{{
    {0x00B7, NSTextListMarkerDisc},
    {0x2022, NSTextListMarkerDisc},
    {0x25CF, NSTextListMarkerDisc},
    {0xF0B7, NSTextListMarkerDisc},
    {0xF06C, NSTextListMarkerDisc},
    {0xF09F, NSTextListMarkerDisc},
    {u'o', NSTextListMarkerHyphen},
    {0x25CB, NSTextListMarkerHyphen},
    {0x25E6, NSTextListMarkerHyphen},
    {u'-', NSTextListMarkerHyphen},
    {0x2010, NSTextListMarkerHyphen},
    {0x2013, NSTextListMarkerHyphen},
    {0x2014, NSTextListMarkerHyphen},
    {0x25A0, NSTextListMarkerSquare},
    {0x25AA, NSTextListMarkerSquare},
    {0xF0A7, NSTextListMarkerSquare},
    {0xF06E, NSTextListMarkerSquare},
    {0x25C6, NSTextListMarkerDiamond},
    {0x25C7, NSTextListMarkerDiamond},
    {0xF075, NSTextListMarkerDiamond},
    {0xF076, NSTextListMarkerDiamond},
    {0x25A1, NSTextListMarkerBox},
    {0x2610, NSTextListMarkerCircle},
    {0x2611, NSTextListMarkerCheck},
    {0x2612, NSTextListMarkerCheck},
    {0xF0A8, NSTextListMarkerBox},
    {0xF06F, NSTextListMarkerBox},
    {0xF071, NSTextListMarkerBox},
    {0xF0D8, u"\u27A2"},
    {0xF0E0, u"\u2192"},
    {0xF0FC, u"\u2713"},
}};

std::u16string bulletFormat(std::u16string_view text)
{
    const auto first = text.find_first_not_of(u" \u00A0");
    if (first == std::u16string_view::npos)
        return std::u16string(NSTextListMarkerDisc);
    const auto sign = text.substr(first, text.find_last_not_of(u" \u00A0") + 1 - first);
    const auto* const found = std::find_if(kSigns.begin(), kSigns.end(),
                                           [sign](const Sign& row) { return row.code == sign.front(); });
    if (sign.size() == 1 && found != kSigns.end())
        return std::u16string(found->format);
    const bool isSymbol = sign.front() >= kFirstSymbol && sign.front() <= kLastSymbol;
    return isSymbol ? std::u16string(NSTextListMarkerDisc) : std::u16string(sign);
}

std::u16string_view tokenFor(WordNumberFormat format)
{
    switch (format) {
    case WordNumberFormat::LowerLetter:
        return NSTextListMarkerLowercaseAlpha;
    case WordNumberFormat::UpperLetter:
        return NSTextListMarkerUppercaseAlpha;
    case WordNumberFormat::LowerRoman:
        return NSTextListMarkerLowercaseRoman;
    case WordNumberFormat::UpperRoman:
        return NSTextListMarkerUppercaseRoman;
    case WordNumberFormat::Bullet:
    case WordNumberFormat::None:
        return {};
    case WordNumberFormat::Decimal:
    case WordNumberFormat::DecimalZero:
        break;
    }
    return NSTextListMarkerDecimal;
}

/// a to z, then aa, bb and on.
std::u16string repeatedLetters(NSInteger number)
{
    constexpr NSInteger kLetterCount = 26;
    if (number < 1 || (number - 1) / kLetterCount >= kMostRepeatedLetters)
        return decimalNumeral(number);
    const auto count = static_cast<std::size_t>((number - 1) / kLetterCount + 1);
    return std::u16string(count, static_cast<char16_t>(u'a' + (number - 1) % kLetterCount));
}

} // namespace

std::u16string wordNumeral(NSInteger number, WordNumberFormat format)
{
    switch (format) {
    case WordNumberFormat::Bullet:
    case WordNumberFormat::None:
        return {};
    case WordNumberFormat::DecimalZero:
        return (number >= 0 && number < 10 ? u"0" : u"") + decimalNumeral(number);
    case WordNumberFormat::LowerLetter:
        return repeatedLetters(number);
    case WordNumberFormat::UpperLetter:
        return inCapitals(repeatedLetters(number));
    case WordNumberFormat::LowerRoman:
        return romanNumeral(number);
    case WordNumberFormat::UpperRoman:
        return inCapitals(romanNumeral(number));
    case WordNumberFormat::Decimal:
        break;
    }
    return decimalNumeral(number);
}

WordMarker wordMarker(std::size_t level, const std::array<NSInteger, kWordListLevelCount>& numbers,
                      const std::array<const WordListLevel*, kWordListLevelCount>& levels)
{
    const auto& own = *levels.at(level);
    WordMarker marker;
    if (own.format == WordNumberFormat::Bullet) {
        marker.format = bulletFormat(own.text);
        marker.text = NSTextList(marker.format).markerForItemNumber(1);
        return marker;
    }
    const auto& text = own.text;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isNumber = text[index] == u'%' && index + 1 < text.size() && text[index + 1] >= u'1'
            && text[index + 1] <= u'9';
        if (!isNumber) {
            marker.text += text[index];
            marker.format += text[index];
            continue;
        }
        const auto place = static_cast<std::size_t>(text[++index] - u'1');
        const bool isDecimal = own.isLegal && levels.at(place)->format != WordNumberFormat::None;
        const auto format = isDecimal ? WordNumberFormat::Decimal : levels.at(place)->format;
        const auto numeral = wordNumeral(numbers.at(place), format);
        marker.text += numeral;
        marker.format += place == level ? std::u16string(tokenFor(format)) : numeral;
    }
    return marker;
}
