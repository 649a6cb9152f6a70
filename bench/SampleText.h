#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Text of about the shape of prose: words of a vocabulary of 50,000, few of them frequent. The same seed
/// gives the same text on every machine.
[[nodiscard]] std::string sampleText(std::uint32_t seed, std::size_t byteCount);

/// The word of the given rank in the vocabulary; rank 0 is the most frequent.
[[nodiscard]] std::string sampleWord(std::size_t rank);
