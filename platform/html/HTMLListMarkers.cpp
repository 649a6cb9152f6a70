#include "platform/html/HTMLListMarkers.h"

#include <algorithm>
#include <array>

namespace {

struct ListStyleType {
    std::string_view keyword;
    std::u16string_view format;
    bool isOrdered;
};

// The first row of a token is the one that it is written as. Tokens that CSS has no keyword for are written
// as the keyword that is nearest.
constexpr std::array kTypes{
    ListStyleType{"disc", u"{disc}", false},
    ListStyleType{"circle", u"{circle}", false},
    ListStyleType{"square", u"{square}", false},
    ListStyleType{"none", u"{none}", false},
    ListStyleType{"disc", u"{hyphen}", false},
    ListStyleType{"square", u"{box}", false},
    ListStyleType{"square", u"{diamond}", false},
    ListStyleType{"circle", u"{check}", false},
    ListStyleType{"decimal", u"{decimal}.", true},
    ListStyleType{"lower-alpha", u"{lower-alpha}.", true},
    ListStyleType{"lower-latin", u"{lower-latin}.", true},
    ListStyleType{"upper-alpha", u"{upper-alpha}.", true},
    ListStyleType{"upper-latin", u"{upper-latin}.", true},
    ListStyleType{"lower-roman", u"{lower-roman}.", true},
    ListStyleType{"upper-roman", u"{upper-roman}.", true},
    ListStyleType{"decimal", u"{octal}.", true},
    ListStyleType{"decimal", u"{lower-hexadecimal}.", true},
    ListStyleType{"decimal", u"{upper-hexadecimal}.", true},
    ListStyleType{"decimal-leading-zero", u"{decimal}.", true},
    ListStyleType{"1", u"{decimal}.", true},
    ListStyleType{"a", u"{lower-alpha}.", true},
    ListStyleType{"A", u"{upper-alpha}.", true},
    ListStyleType{"i", u"{lower-roman}.", true},
    ListStyleType{"I", u"{upper-roman}.", true},
};

constexpr std::size_t kMostMarkerUnits = 24;

/// The row whose token the format holds.
const ListStyleType* typeOfFormat(std::u16string_view format)
{
    const auto* const found = std::find_if(kTypes.begin(), kTypes.end(), [format](const ListStyleType& type) {
        return format.find(type.format.substr(0, type.format.find(u'}') + 1)) != std::u16string_view::npos;
    });
    return found == kTypes.end() ? nullptr : found;
}

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isLetterOrDigit(char16_t unit)
{
    return isDigit(unit) || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

/// The letters and digits of a marker, without the text around them.
std::u16string_view numeralOf(std::u16string_view marker)
{
    const auto* const first = std::find_if(marker.begin(), marker.end(), isLetterOrDigit);
    const auto* const last = std::find_if_not(first, marker.end(), isLetterOrDigit);
    return {first, static_cast<std::size_t>(last - first)};
}

std::optional<NSInteger> decimalNumber(std::u16string_view numeral)
{
    if (numeral.empty() || numeral.size() > 9 || !std::all_of(numeral.begin(), numeral.end(), isDigit))
        return std::nullopt;
    NSInteger number = 0;
    for (const auto digit : numeral)
        number = number * 10 + (digit - u'0');
    return number;
}

/// Whether the marker is the list's format with some numeral in the token's place.
bool fitsFormat(std::u16string_view marker, std::u16string_view format)
{
    const auto opening = format.find(u'{');
    const auto closing = format.find(u'}');
    if (opening == std::u16string_view::npos || closing == std::u16string_view::npos || closing < opening)
        return false;
    const auto before = format.substr(0, opening);
    const auto after = format.substr(closing + 1);
    if (marker.size() <= before.size() + after.size() || !marker.starts_with(before)
        || !marker.ends_with(after))
        return false;
    const auto numeral = marker.substr(before.size(), marker.size() - before.size() - after.size());
    return std::all_of(numeral.begin(), numeral.end(), isLetterOrDigit);
}

bool isSign(std::u16string_view marker)
{
    return marker.size() <= 2 && std::none_of(marker.begin(), marker.end(), isLetterOrDigit);
}

bool looksLikeMarker(std::u16string_view marker, const NSTextList& list)
{
    if (isSign(marker) || marker == list.markerForItemNumber(list.startingItemNumber()))
        return true;
    if (isOrderedList(list) && fitsFormat(marker, list.markerFormat()))
        return true;
    return decimalNumber(numeralOf(marker)) && (marker.ends_with(u'.') || marker.ends_with(u')'))
        && numeralOf(marker).size() + 1 == marker.size();
}

} // namespace

bool isChecklist(const NSTextList& list)
{
    return list.markerFormat() == NSTextListMarkerCheck || list.markerFormat() == NSTextListMarkerCircle;
}

bool isOrderedList(const NSTextList& list)
{
    const auto* const type = typeOfFormat(list.markerFormat());
    return type && type->isOrdered;
}

std::string_view listStyleTypeForMarkerFormat(std::u16string_view format)
{
    const auto* const type = typeOfFormat(format);
    return type ? type->keyword : "none";
}

std::optional<std::u16string_view> markerFormatForListStyleType(std::string_view type)
{
    const auto* const found
        = std::find_if(kTypes.begin(), kTypes.end(),
                       [type](const ListStyleType& candidate) { return candidate.keyword == type; });
    return found == kTypes.end() ? std::nullopt : std::optional(found->format);
}

std::optional<HTMLListMarker> listMarkerAtStart(std::u16string_view paragraph, const NSTextList& list)
{
    if (!paragraph.starts_with(u'\t'))
        return std::nullopt;
    const auto end = paragraph.substr(0, kMostMarkerUnits + 2).find(u'\t', 1);
    if (end == std::u16string_view::npos)
        return std::nullopt;
    const auto marker = paragraph.substr(1, end - 1);
    if (!looksLikeMarker(marker, list))
        return std::nullopt;
    return HTMLListMarker{end + 1, decimalNumber(numeralOf(marker))};
}
