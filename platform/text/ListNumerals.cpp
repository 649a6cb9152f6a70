#include "platform/text/ListNumerals.h"

#include <algorithm>
#include <array>
#include <string_view>

std::u16string decimalNumeral(NSInteger number)
{
    return numeralInBase(number, 10);
}

std::u16string numeralInBase(NSInteger number, unsigned base)
{
    constexpr std::u16string_view kDigits = u"0123456789abcdef";
    auto magnitude
        = number < 0 ? NSUInteger{0} - static_cast<NSUInteger>(number) : static_cast<NSUInteger>(number);
    std::u16string reversed;
    do {
        reversed += kDigits[magnitude % base];
        magnitude /= base;
    } while (magnitude > 0);
    if (number < 0)
        reversed += u'-';
    return {reversed.rbegin(), reversed.rend()};
}

std::u16string letterNumeral(NSInteger number)
{
    constexpr NSInteger kLetters = 26;
    if (number < 1)
        return decimalNumeral(number);
    std::u16string reversed;
    for (auto rest = number; rest > 0; rest = (rest - 1) / kLetters)
        reversed += static_cast<char16_t>(u'a' + (rest - 1) % kLetters);
    return {reversed.rbegin(), reversed.rend()};
}

std::u16string romanNumeral(NSInteger number)
{
    struct Part {
        NSInteger value;
        std::u16string_view numeral;
    };

    constexpr NSInteger kGreatest = 3999;
    static constexpr std::array kParts{
        Part{1000, u"m"}, Part{900, u"cm"}, Part{500, u"d"}, Part{400, u"cd"}, Part{100, u"c"},
        Part{90, u"xc"},  Part{50, u"l"},   Part{40, u"xl"}, Part{10, u"x"},   Part{9, u"ix"},
        Part{5, u"v"},    Part{4, u"iv"},   Part{1, u"i"},
    };
    if (number < 1 || number > kGreatest)
        return decimalNumeral(number);
    std::u16string text;
    for (const auto& part : kParts) {
        for (; number >= part.value; number -= part.value)
            text += part.numeral;
    }
    return text;
}

std::u16string inCapitals(std::u16string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char16_t unit) {
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    });
    return text;
}
