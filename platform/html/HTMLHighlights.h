#pragma once

#include "platform/text/NSAttributedString.h"

#include <optional>
#include <string_view>

/// Highlighted text is a <mark> whose class names the colour scheme: "orange", "mint", "blue", "pink",
/// "purple", or none for the default scheme.

/// The class of the highlight that text of these attributes has, by the platform's attributes or by a note's
/// own; none when it has no highlight.
[[nodiscard]] std::optional<std::string_view> highlightClass(const NSAttributes& attributes);

/// The colour scheme of a class; the default one for every other text.
[[nodiscard]] std::u16string_view highlightColorSchemeOfClass(std::string_view name);

/// The rules by which a page shows the platform's highlights, in both appearances.
[[nodiscard]] std::string_view highlightRules();
