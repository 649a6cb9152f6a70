#include "platform/text/NSTextList.h"

#include "platform/text/CoderValues.h"
#include "platform/text/ListNumerals.h"

#include <array>
#include <atomic>
#include <optional>

namespace {

struct Symbol {
    std::u16string_view token;
    std::u16string_view marker;
};

constexpr std::array kSymbols{
    Symbol{NSTextListMarkerBox, u"\u25AB"},    Symbol{NSTextListMarkerCheck, u"\u2713"},
    Symbol{NSTextListMarkerCircle, u"\u25E6"}, Symbol{NSTextListMarkerDiamond, u"\u25C6"},
    Symbol{NSTextListMarkerDisc, u"\u2022"},   Symbol{NSTextListMarkerHyphen, u"\u2043"},
    Symbol{NSTextListMarkerSquare, u"\u25AA"}, Symbol{NSTextListMarkerNone, u""},
};

struct Numeral {
    std::u16string_view token;
    std::u16string (*text)(NSInteger number);
};

constexpr std::array kNumerals{
    Numeral{NSTextListMarkerDecimal, [](NSInteger number) { return decimalNumeral(number); }},
    Numeral{NSTextListMarkerOctal, [](NSInteger number) { return numeralInBase(number, 8); }},
    Numeral{NSTextListMarkerLowercaseHexadecimal, [](NSInteger number) { return numeralInBase(number, 16); }},
    Numeral{NSTextListMarkerUppercaseHexadecimal,
            [](NSInteger number) { return inCapitals(numeralInBase(number, 16)); }},
    Numeral{NSTextListMarkerLowercaseAlpha, [](NSInteger number) { return letterNumeral(number); }},
    Numeral{NSTextListMarkerUppercaseAlpha,
            [](NSInteger number) { return inCapitals(letterNumeral(number)); }},
    Numeral{NSTextListMarkerLowercaseLatin, [](NSInteger number) { return letterNumeral(number); }},
    Numeral{NSTextListMarkerUppercaseLatin,
            [](NSInteger number) { return inCapitals(letterNumeral(number)); }},
    Numeral{NSTextListMarkerLowercaseRoman, [](NSInteger number) { return romanNumeral(number); }},
    Numeral{NSTextListMarkerUppercaseRoman,
            [](NSInteger number) { return inCapitals(romanNumeral(number)); }},
};

/// What a token, with its braces, stands for; none when it is no token.
std::optional<std::u16string> markerOfToken(std::u16string_view token, NSInteger itemNumber)
{
    for (const auto& symbol : kSymbols) {
        if (symbol.token == token)
            return std::u16string(symbol.marker);
    }
    for (const auto& numeral : kNumerals) {
        if (numeral.token == token)
            return numeral.text(itemNumber);
    }
    return std::nullopt;
}

NSAny decodeTextList(NSCoder& coder)
{
    const auto format = coder.decodeStringForKey("NSMarkerFormat");
    const auto start = coder.containsValueForKey("NSStart") ? coder.decodeIntegerForKey("NSStart") : 1;
    return std::make_shared<const NSTextList>(format.value_or(std::u16string()),
                                              static_cast<NSUInteger>(coder.decodeIntegerForKey("NSOptions")),
                                              start);
}

std::atomic<bool>& markersInTexts()
{
    static std::atomic<bool> included = true;
    return included;
}

} // namespace

NSTextList::NSTextList(std::u16string_view markerFormat, NSUInteger options, NSInteger startingItemNumber)
    : m_markerFormat(markerFormat)
    , m_options(options)
    , m_startingItemNumber(startingItemNumber)
{
}

std::u16string NSTextList::markerForItemNumber(NSInteger itemNumber) const
{
    std::u16string marker;
    std::u16string_view rest = m_markerFormat;
    while (!rest.empty()) {
        const auto open = rest.find(u'{');
        const auto close = open == std::u16string_view::npos ? open : rest.find(u'}', open);
        if (close == std::u16string_view::npos)
            break;
        const auto token = rest.substr(open, close - open + 1);
        const auto text = markerOfToken(token, itemNumber);
        marker += rest.substr(0, open);
        // Of braces that are no token the first stays, and what follows it may yet be one.
        marker += text ? std::u16string_view(*text) : token.substr(0, 1);
        rest.remove_prefix(text ? close + 1 : open + 1);
    }
    return marker.append(rest);
}

bool NSTextList::includesTextListMarkers()
{
    return markersInTexts();
}

void NSTextList::setIncludesTextListMarkers(bool includes)
{
    markersInTexts() = includes;
}

const NSClass& NSTextList::classObject()
{
    static const NSClass object{"NSTextList", &NSObjectClass, &decodeTextList};
    return object;
}

const NSClass& NSTextList::classForCoder() const
{
    return classObject();
}

void NSTextList::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeObject(NSAny(m_markerFormat), "NSMarkerFormat");
    coder.encodeObject(NSAny(), "NSMarkerTextAttachment");
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(m_options), "NSOptions");
    if (m_startingItemNumber != 1)
        coder.encodeInteger(m_startingItemNumber, "NSStart");
}
