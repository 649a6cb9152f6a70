#include "platform/rtf/RTFListMarkers.h"

#include "platform/text/NSTextList.h"

#include <algorithm>
#include <array>

namespace {

// Number systems that RTF has none for are told as plain numbers. Of tokens with one number the first is that
// which the number is read as.
constexpr std::array kMarkers{
    RTFListMarker{NSTextListMarkerDecimal, 0, 0},
    RTFListMarker{NSTextListMarkerUppercaseRoman, 1, 0},
    RTFListMarker{NSTextListMarkerLowercaseRoman, 2, 0},
    RTFListMarker{NSTextListMarkerUppercaseAlpha, 3, 0},
    RTFListMarker{NSTextListMarkerUppercaseLatin, 3, 0},
    RTFListMarker{NSTextListMarkerLowercaseAlpha, 4, 0},
    RTFListMarker{NSTextListMarkerLowercaseLatin, 4, 0},
    RTFListMarker{NSTextListMarkerOctal, 0, 0},
    RTFListMarker{NSTextListMarkerLowercaseHexadecimal, 0, 0},
    RTFListMarker{NSTextListMarkerUppercaseHexadecimal, 0, 0},
    RTFListMarker{NSTextListMarkerDisc, kSignMarker, u'\u2022'},
    RTFListMarker{NSTextListMarkerCircle, kSignMarker, u'\u25E6'},
    RTFListMarker{NSTextListMarkerSquare, kSignMarker, u'\u25AA'},
    RTFListMarker{NSTextListMarkerHyphen, kSignMarker, u'\u2043'},
    RTFListMarker{NSTextListMarkerCheck, kSignMarker, u'\u2713'},
    RTFListMarker{NSTextListMarkerBox, kSignMarker, u'\u25A1'},
    RTFListMarker{NSTextListMarkerDiamond, kSignMarker, u'\u25C6'},
    RTFListMarker{NSTextListMarkerNone, kNoMarker, 0},
};

struct ForeignSign {
    char16_t sign;
    std::u16string_view token;
};

/// Signs of word processors, most of them places in fonts of symbols.
constexpr std::array kForeignSigns{
    ForeignSign{u'\u00B7', NSTextListMarkerDisc},    ForeignSign{u'\uF0B7', NSTextListMarkerDisc},
    ForeignSign{u'\u25CF', NSTextListMarkerDisc},    ForeignSign{u'o', NSTextListMarkerCircle},
    ForeignSign{u'\u25CB', NSTextListMarkerCircle},  ForeignSign{u'\u00A7', NSTextListMarkerSquare},
    ForeignSign{u'\uF0A7', NSTextListMarkerSquare},  ForeignSign{u'\u25A0', NSTextListMarkerSquare},
    ForeignSign{u'\u25AB', NSTextListMarkerBox},     ForeignSign{u'-', NSTextListMarkerHyphen},
    ForeignSign{u'\u2013', NSTextListMarkerHyphen},  ForeignSign{u'\uF0FC', NSTextListMarkerCheck},
    ForeignSign{u'\uF076', NSTextListMarkerDiamond},
};

constexpr std::size_t kMostMarkerUnits = 24;

} // namespace

const RTFListMarker* listMarkerOfFormat(std::u16string_view format)
{
    const auto* const found
        = std::find_if(kMarkers.begin(), kMarkers.end(), [format](const RTFListMarker& marker) {
              return format.find(marker.token) != std::u16string_view::npos;
          });
    return found == kMarkers.end() ? nullptr : found;
}

std::u16string_view tokenOfListNumber(std::int32_t number)
{
    const auto* const found
        = std::find_if(kMarkers.begin(), kMarkers.end(), [number](const RTFListMarker& marker) {
              return marker.number == number && marker.sign == 0;
          });
    return found == kMarkers.end() ? NSTextListMarkerDecimal : found->token;
}

std::optional<std::u16string_view> tokenOfListSign(char16_t sign)
{
    const auto* const own = std::find_if(kMarkers.begin(), kMarkers.end(),
                                         [sign](const RTFListMarker& marker) { return marker.sign == sign; });
    if (own != kMarkers.end() && sign != 0)
        return own->token;
    const auto* const foreign = std::find_if(kForeignSigns.begin(), kForeignSigns.end(),
                                             [sign](const ForeignSign& entry) { return entry.sign == sign; });
    return foreign == kForeignSigns.end() ? std::nullopt : std::optional(foreign->token);
}

std::size_t listMarkerLength(std::u16string_view paragraph)
{
    if (!paragraph.starts_with(u'\t'))
        return 0;
    const auto end = paragraph.substr(0, kMostMarkerUnits + 2).find_first_of(u"\t \u00A0\uFFFC", 1);
    return end == std::u16string_view::npos || paragraph[end] != u'\t' ? 0 : end + 1;
}
