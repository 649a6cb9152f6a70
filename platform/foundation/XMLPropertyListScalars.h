#pragma once

#include "platform/foundation/NSAny.h"

#include <optional>
#include <string>
#include <string_view>

// The texts between a property list's tags. Blanks around them do not count; none means that the text is
// malformed.

/// Decimal, or hexadecimal behind "0x". From 2^63 to 2^64 - 1 the nearest real.
[[nodiscard]] std::optional<NSAny> integerFromPropertyListText(std::string_view text);

/// Also "nan", "inf", "infinity" with a sign or without.
[[nodiscard]] std::optional<double> realFromPropertyListText(std::string_view text);
[[nodiscard]] std::string propertyListTextWithReal(double real);

/// "2001-01-01T00:00:00Z".
[[nodiscard]] std::optional<NSDate> dateFromPropertyListText(std::string_view text);
/// None for what is no moment of the years 0 to 9999.
[[nodiscard]] std::optional<std::string> propertyListTextWithDate(NSDate date);
