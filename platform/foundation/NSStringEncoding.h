#pragma once

#include "platform/foundation/NSRange.h"

#include <optional>
#include <string>
#include <string_view>

/// The platform's numbers for the encodings of texts.
using NSStringEncoding = NSUInteger;

inline constexpr NSStringEncoding NSASCIIStringEncoding = 1;
inline constexpr NSStringEncoding NSJapaneseEUCStringEncoding = 3;
inline constexpr NSStringEncoding NSUTF8StringEncoding = 4;
inline constexpr NSStringEncoding NSISOLatin1StringEncoding = 5;
inline constexpr NSStringEncoding NSShiftJISStringEncoding = 8;
inline constexpr NSStringEncoding NSISOLatin2StringEncoding = 9;
inline constexpr NSStringEncoding NSWindowsCP1251StringEncoding = 11;
inline constexpr NSStringEncoding NSWindowsCP1252StringEncoding = 12;
inline constexpr NSStringEncoding NSWindowsCP1253StringEncoding = 13;
inline constexpr NSStringEncoding NSWindowsCP1254StringEncoding = 14;
inline constexpr NSStringEncoding NSWindowsCP1250StringEncoding = 15;
inline constexpr NSStringEncoding NSISO2022JPStringEncoding = 21;
inline constexpr NSStringEncoding NSMacOSRomanStringEncoding = 30;

/// The text that `bytes` are in this encoding; none for bytes that mean nothing in it and for a number that
/// is none of the above.
[[nodiscard]] std::optional<std::u16string> stringWithBytes(std::string_view bytes,
                                                            NSStringEncoding encoding);
