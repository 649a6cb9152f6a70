#pragma once

#include <cstddef>
#include <cstdint>

/// What a property list or an archive may ask of those who read it, so that no bytes from outside cost more
/// than their size explains. Writers keep the first two as well: what was written can be read.

inline constexpr std::size_t kMaximumPropertyListByteCount = std::size_t{1} << 30;

/// Collections and objects within one another. Each level costs some hundred bytes of stack while it is read,
/// compared or destroyed.
inline constexpr unsigned kMaximumPropertyListDepth = 256;

/// What is stored once may be referred to often, and lists of references to lists of references grow without
/// bound when they are walked. This many values are walked at most, above those that the bytes hold.
inline constexpr std::uint64_t kMaximumExpandedCount = 32'000'000;

/// Long texts and bytes count as one value more for each of these.
inline constexpr std::size_t kBytesPerExpandedValue = 256;
