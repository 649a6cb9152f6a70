#include "tests/support/CompoundFileBytes.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kMiniSector = 64;
constexpr std::size_t kEntry = 128;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kTableSector = 0xFFFFFFFD;
constexpr std::uint32_t kNone = 0xFFFFFFFF;

std::size_t roundedUp(std::size_t length, std::size_t unit)
{
    return (length + unit - 1) / unit * unit;
}

/// A region of the file in the making: sectors and the table that chains them.
struct Region {
    std::size_t sectorByteCount;
    std::string bytes{};
    std::vector<std::uint32_t> table{};

    std::uint32_t append(const std::string& content)
    {
        const auto first = static_cast<std::uint32_t>(table.size());
        bytes += content;
        bytes.resize(roundedUp(bytes.size(), sectorByteCount));
        const auto end = bytes.size() / sectorByteCount;
        while (table.size() < end)
            table.push_back(table.size() + 1 == end ? kEndOfChain
                                                    : static_cast<std::uint32_t>(table.size() + 1));
        return end == first ? kEndOfChain : first;
    }
};

std::string tableBytes(const std::vector<std::uint32_t>& table)
{
    std::string bytes;
    for (std::size_t index = 0; index < roundedUp(table.size(), kSector / 4); ++index)
        putLittleEndian(bytes, index * 4, index < table.size() ? table[index] : kNone, 4);
    return bytes;
}

void putEntry(std::string& directory, std::size_t index, const std::string& name, std::uint64_t type,
              std::uint32_t right, std::uint32_t child, std::uint32_t firstSector, std::size_t byteCount)
{
    const auto start = index * kEntry;
    for (std::size_t position = 0; position < name.size(); ++position)
        putLittleEndian(directory, start + position * 2, static_cast<unsigned char>(name[position]), 2);
    putLittleEndian(directory, start + 64, name.size() * 2 + 2, 2);
    putLittleEndian(directory, start + 66, type, 1);
    putLittleEndian(directory, start + 68, kNone, 4);
    putLittleEndian(directory, start + 72, right, 4);
    putLittleEndian(directory, start + 76, child, 4);
    putLittleEndian(directory, start + 116, firstSector, 4);
    putLittleEndian(directory, start + 120, byteCount, 8);
}

} // namespace

void putLittleEndian(std::string& bytes, std::size_t offset, std::uint64_t value, std::size_t byteCount)
{
    bytes.resize(std::max(bytes.size(), offset + byteCount));
    for (std::size_t index = 0; index < byteCount; ++index)
        bytes[offset + index] = static_cast<char>((value >> (8 * index)) & 0xFFU);
}

std::string compoundFileOf(const std::vector<CompoundStream>& streams, std::uint32_t miniCutoff)
{
    // Sector 0 is the allocation table: one sector tells of 128.
    Region file{kSector};
    file.bytes.resize(kSector);
    file.table.push_back(kTableSector);
    Region mini{kMiniSector};

    std::string directory;
    for (std::size_t index = 0; index < streams.size(); ++index) {
        const auto& stream = streams[index];
        const auto first = (stream.bytes.size() < miniCutoff ? mini : file).append(stream.bytes);
        const auto right = index + 1 < streams.size() ? static_cast<std::uint32_t>(index + 2) : kNone;
        putEntry(directory, index + 1, stream.name, 2, right, kNone, first, stream.bytes.size());
    }
    const auto miniContainer = file.append(mini.bytes);
    const auto miniTable = file.append(tableBytes(mini.table));
    putEntry(directory, 0, "Root Entry", 5, kNone, streams.empty() ? kNone : 1, miniContainer,
             mini.bytes.size());
    const auto directorySector = file.append(directory);
    if (file.table.size() > kSector / 4)
        throw std::runtime_error("the compound file is too long for this builder");
    file.bytes.replace(0, kSector, tableBytes(file.table));

    std::string header("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
    putLittleEndian(header, 24, 0x3E, 2);
    putLittleEndian(header, 26, 3, 2);
    putLittleEndian(header, 28, 0xFFFE, 2);
    putLittleEndian(header, 30, 9, 2);
    putLittleEndian(header, 32, 6, 2);
    putLittleEndian(header, 44, 1, 4);
    putLittleEndian(header, 48, directorySector, 4);
    putLittleEndian(header, 56, miniCutoff, 4);
    putLittleEndian(header, 60, miniTable, 4);
    putLittleEndian(header, 68, kEndOfChain, 4);
    for (std::size_t index = 0; index < 109; ++index)
        putLittleEndian(header, 76 + index * 4, index == 0 ? 0 : kNone, 4);
    return header + file.bytes;
}
