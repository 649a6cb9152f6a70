#pragma once

#include <cstdint>
#include <string_view>

/// The colour schemes of the platform's highlights are numbers in RTF: 0 for the default one, those of the
/// colours below it. Names and numbers that are not known count as the default.
[[nodiscard]] std::int32_t highlightSchemeNumber(std::u16string_view name);
[[nodiscard]] std::u16string_view highlightSchemeName(std::int32_t number);
