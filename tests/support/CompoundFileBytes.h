#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct CompoundStream {
    std::string name;
    std::string bytes;
};

/// A compound file with these streams side by side in its outermost storage, in sectors of 512 bytes. Streams
/// shorter than `miniCutoff` go into the container of small streams. Room for about 60 KB of streams.
[[nodiscard]] std::string compoundFileOf(const std::vector<CompoundStream>& streams,
                                         std::uint32_t miniCutoff = 0);

/// Overwrites bytes with a number, lowest byte first, lengthening the buffer where needed.
void putLittleEndian(std::string& bytes, std::size_t offset, std::uint64_t value, std::size_t byteCount);
