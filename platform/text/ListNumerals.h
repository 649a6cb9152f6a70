#pragma once

#include "platform/foundation/NSRange.h"

#include <string>

/// The numbers of list items as text.

[[nodiscard]] std::u16string decimalNumeral(NSInteger number);

/// Lower-case digits of a base from 2 to 16, behind a minus sign when negative.
[[nodiscard]] std::u16string numeralInBase(NSInteger number, unsigned base);

/// a to z, then aa to az, ba and on. Decimal below 1.
[[nodiscard]] std::u16string letterNumeral(NSInteger number);

/// Lower-case Roman numerals from 1 to 3999, decimal for others.
[[nodiscard]] std::u16string romanNumeral(NSInteger number);

/// ASCII letters as capitals.
[[nodiscard]] std::u16string inCapitals(std::u16string text);
