#include "platform/word/WordUnderlines.h"

#include <algorithm>
#include <array>

namespace {

struct Underline {
    std::string_view name;
    int style;
};

constexpr int kByWord = 0x8000;
constexpr int kDotted = 0x100;
constexpr int kDashed = 0x200;
constexpr int kDashDotted = 0x300;
constexpr int kDashDotDotted = 0x400;
constexpr int kThick = 2;
constexpr int kWeightMask = 0xF;

// Of names with one style the first is that which the style is written as.
constexpr std::array<Underline, 18> kUnderlines{{{"none", 0},
                                                 {"single", kWordSingleLine},
                                                 {"words", kWordSingleLine | kByWord},
                                                 {"double", kWordDoubleLine},
                                                 {"thick", kThick},
                                                 {"dotted", kWordSingleLine | kDotted},
                                                 {"dottedHeavy", kThick | kDotted},
                                                 {"dash", kWordSingleLine | kDashed},
                                                 {"dashedHeavy", kThick | kDashed},
                                                 {"dashLong", kWordSingleLine | kDashed},
                                                 {"dashLongHeavy", kThick | kDashed},
                                                 {"dotDash", kWordSingleLine | kDashDotted},
                                                 {"dashDotHeavy", kThick | kDashDotted},
                                                 {"dotDotDash", kWordSingleLine | kDashDotDotted},
                                                 {"dashDotDotHeavy", kThick | kDashDotDotted},
                                                 {"wave", kWordSingleLine},
                                                 {"wavyHeavy", kThick},
                                                 {"wavyDouble", kWordDoubleLine}}};

const Underline* underlineOf(int style)
{
    const auto* const found = std::find_if(kUnderlines.begin(), kUnderlines.end(),
                                           [style](const Underline& row) { return row.style == style; });
    return found == kUnderlines.end() ? nullptr : found;
}

} // namespace

int wordUnderlineNamed(std::string_view name)
{
    const auto* const found = std::find_if(kUnderlines.begin(), kUnderlines.end(),
                                           [name](const Underline& row) { return row.name == name; });
    return found == kUnderlines.end() ? kWordSingleLine : found->style;
}

std::string_view wordUnderlineName(int style)
{
    if (const auto* const own = underlineOf(style))
        return own->name;
    const auto* const plain = underlineOf(style & kWeightMask);
    return plain && plain->style != 0 ? plain->name : "single";
}
