#pragma once

#include "platform/text/NSTextList.h"

#include <optional>
#include <string>
#include <string_view>

/// How the lists of a text and those of HTML stand for each other.

/// Whether items of the list are boxes to tick: of the check or of the circle marker.
[[nodiscard]] bool isChecklist(const NSTextList& list);

/// Whether the list's markers count.
[[nodiscard]] bool isOrderedList(const NSTextList& list);

/// The keyword of `list-style-type` nearest to a marker format: "disc", "decimal".
[[nodiscard]] std::string_view listStyleTypeForMarkerFormat(std::u16string_view format);

/// The marker format of a keyword, or of the letter that the attribute `type` of a list has; numbers with a
/// full stop behind them, as readers of pages see them. None for what is neither.
[[nodiscard]] std::optional<std::u16string_view> markerFormatForListStyleType(std::string_view type);

/// The marker that a paragraph of the list begins with, between tabs.
struct HTMLListMarker {
    /// With both tabs.
    std::size_t length = 0;
    /// The number of a decimal marker.
    std::optional<NSInteger> number;
};

/// None when the paragraph does not begin with a tab, something that looks like a marker (of the list itself,
/// a single sign, or a numeral with punctuation) and a tab.
[[nodiscard]] std::optional<HTMLListMarker> listMarkerAtStart(std::u16string_view paragraph,
                                                              const NSTextList& list);
