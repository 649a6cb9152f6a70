#include "platform/word/WordSymbols.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint32_t kFirstPrivate = 0xE000;
constexpr std::uint32_t kFirstSymbol = 0xF000;
constexpr std::uint32_t kLastSymbol = 0xF0FF;
constexpr std::uint32_t kLastPrivate = 0xF8FF;

/// What the font Symbol has in the places of A to Z and of a to z.
constexpr std::u16string_view kCapitals = u"ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ";
constexpr std::u16string_view kLetters = u"αβχδεφγηιϕκλμνοπθρστυϖωξψζ";

struct Sign {
    std::uint32_t code;
    char16_t character;
};

constexpr std::array<Sign, 20> kSymbolSigns{
    {{0xA3, u'≤'}, {0xA5, u'∞'}, {0xAB, u'↔'}, {0xAC, u'←'}, {0xAD, u'↑'}, {0xAE, u'→'}, {0xAF, u'↓'},
     {0xB0, u'°'}, {0xB1, u'±'}, {0xB3, u'≥'}, {0xB4, u'×'}, {0xB7, u'•'}, {0xB8, u'÷'}, {0xB9, u'≠'},
     {0xBB, u'≈'}, {0xC5, u'⊕'}, {0xD6, u'√'}, {0xE5, u'∑'}, {0xF2, u'∫'}, {0xB6, u'∂'}}};

constexpr std::array<Sign, 18> kWingdingsSigns{{{0x4A, u'☺'},
                                                {0x6C, u'●'},
                                                {0x6E, u'■'},
                                                {0x6F, u'□'},
                                                {0x71, u'❑'},
                                                {0x75, u'◆'},
                                                {0x76, u'❖'},
                                                {0x9F, u'•'},
                                                {0xA7, u'▪'},
                                                {0xA8, u'◻'},
                                                {0xD8, u'➢'},
                                                {0xDF, u'←'},
                                                {0xE0, u'→'},
                                                {0xE8, u'➔'},
                                                {0xFB, u'✗'},
                                                {0xFC, u'✓'},
                                                {0xFD, u'☒'},
                                                {0xFE, u'☑'}}};

template <std::size_t Count> char16_t signOf(const std::array<Sign, Count>& signs, std::uint32_t code)
{
    const auto* const found
        = std::find_if(signs.begin(), signs.end(), [code](const Sign& sign) { return sign.code == code; });
    return found == signs.end() ? char16_t{0} : found->character;
}

} // namespace

char16_t wordSymbol(std::string_view font, std::uint32_t code)
{
    const bool isPlain = code >= 0x100 && code <= 0xFFFF && (code < kFirstPrivate || code > kLastPrivate);
    const bool isSurrogate = code >= 0xD800 && code < kFirstPrivate;
    const bool isSymbolFont = font == "Symbol" || font == "Wingdings";
    if (isSurrogate || code < 0x20)
        return 0;
    if (isPlain || (code < 0x100 && !isSymbolFont))
        return static_cast<char16_t>(code);
    if (code > 0xFF && (code < kFirstSymbol || code > kLastSymbol))
        return 0;
    const auto low = code & 0xFFU;
    if (font == "Wingdings")
        return signOf(kWingdingsSigns, low);
    if (low >= 'A' && low <= 'Z')
        return font == "Symbol" ? kCapitals[low - 'A'] : char16_t{0};
    if (low >= 'a' && low <= 'z')
        return font == "Symbol" ? kLetters[low - 'a'] : char16_t{0};
    return font == "Symbol" ? signOf(kSymbolSigns, low) : char16_t{0};
}
