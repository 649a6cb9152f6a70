#pragma once

#include <cstddef>
#include <cstdint>

/// The bounds within which RTF is read. Documents beyond the first two are refused; of the others, what lies
/// beyond is left out or counts as the last that is within.

inline constexpr std::size_t kMostRTFBytes = std::size_t{512} << 20U;
/// UTF-16 code units of text.
inline constexpr std::size_t kMostRTFUnits = std::size_t{256} << 20U;

/// Groups within groups that have a state of their own; deeper ones share that of the deepest.
inline constexpr std::size_t kMostRTFStates = 10'000;
/// Stand-ins of one Unicode character.
inline constexpr std::int32_t kMostRTFStandIns = 1'000;

inline constexpr std::size_t kMostRTFFonts = 10'000;
inline constexpr std::size_t kMostRTFColors = 100'000;
inline constexpr std::size_t kMostRTFLists = 10'000;
/// Of one paragraph, and of all paragraph styles of a document together.
inline constexpr std::size_t kMostRTFTabs = 256;
inline constexpr std::size_t kMostRTFTabsOfStyles = 2'000'000;
inline constexpr std::size_t kMostRTFAttachments = 10'000;
inline constexpr std::size_t kMostRTFFields = 1'000'000;
/// Bytes of one name, address or piece of information.
inline constexpr std::size_t kMostRTFFieldBytes = 65'536;

inline constexpr std::size_t kMostRTFTableDepth = 32;
inline constexpr std::size_t kMostRTFColumns = 1'000;
