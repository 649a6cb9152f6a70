#include "platform/rtf/RTFHighlights.h"

#include "platform/text/NSAttributeNames.h"

#include <algorithm>
#include <array>

namespace {

/// In the order of their numbers: 0, -1 and on.
constexpr std::array kSchemes{NSTextHighlightColorSchemeDefault, NSTextHighlightColorSchemePurple,
                              NSTextHighlightColorSchemePink,    NSTextHighlightColorSchemeOrange,
                              NSTextHighlightColorSchemeMint,    NSTextHighlightColorSchemeBlue};

} // namespace

std::int32_t highlightSchemeNumber(std::u16string_view name)
{
    const auto* const found = std::find(kSchemes.begin(), kSchemes.end(), name);
    return found == kSchemes.end() ? 0 : -static_cast<std::int32_t>(found - kSchemes.begin());
}

std::u16string_view highlightSchemeName(std::int32_t number)
{
    const bool isKnown = number <= 0 && number > -static_cast<std::int32_t>(kSchemes.size());
    return kSchemes.at(isKnown ? static_cast<std::size_t>(-number) : 0);
}
