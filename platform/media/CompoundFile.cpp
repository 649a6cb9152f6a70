#include "platform/media/CompoundFile.h"

#include "platform/media/LittleEndian.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t kHeaderByteCount = 512;
constexpr std::size_t kHeaderTableOffset = 76;
constexpr std::size_t kHeaderTableLength = 109;
constexpr std::size_t kEntryByteCount = 128;
constexpr unsigned kMiniSectorShift = 6;
constexpr std::uint32_t kNoEntry = 0xFFFFFFFF;
/// Sectors that the allocation table may tell of: files of 8 GB.
constexpr std::size_t kSectorLimit = std::size_t{1} << 24;
constexpr std::size_t kDirectoryByteLimit = std::size_t{16} << 20;

enum class EntryType : std::uint8_t { Stream = 2, Root = 5 };

bool isType(std::string_view entry, EntryType type)
{
    constexpr std::size_t kTypeOffset = 66;
    return littleEndian(entry, kTypeOffset, 1) == static_cast<std::uint8_t>(type);
}

std::uint32_t firstSectorOf(std::string_view entry)
{
    constexpr std::size_t kFirstSectorOffset = 116;
    return littleEndian32(entry, kFirstSectorOffset);
}

char lowerCase(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Empty for a name that is not ASCII.
std::string nameOf(std::string_view entry)
{
    constexpr std::size_t kLengthOffset = 64;
    const std::size_t byteCount = std::min<std::size_t>(littleEndian16(entry, kLengthOffset), kLengthOffset);
    std::string name;
    for (std::size_t offset = 0; offset + 2 < byteCount; offset += 2) {
        const auto unit = littleEndian16(entry, offset);
        if (unit >= 0x80)
            return {};
        name += static_cast<char>(unit);
    }
    return name;
}

} // namespace

bool CompoundFile::NameOrder::operator()(std::string_view left, std::string_view right) const
{
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(),
        [](char first, char second) { return lowerCase(first) < lowerCase(second); });
}

CompoundFile::CompoundFile(const SourceBytes& bytes)
    : m_bytes(bytes)
{
}

std::optional<CompoundFile> CompoundFile::open(const SourceBytes& bytes)
{
    CompoundFile file(bytes);
    if (!file.readTables())
        return std::nullopt;
    return file;
}

bool CompoundFile::isCompoundFile(std::string_view firstBytes)
{
    return firstBytes.starts_with(kSignature);
}

bool CompoundFile::readTables()
{
    std::string header(kHeaderByteCount, '\0');
    if (m_bytes.readAt(0, header) != kHeaderByteCount || !isCompoundFile(header))
        return false;
    m_sectorShift = littleEndian16(header, 30);
    m_miniCutoff = littleEndian32(header, 56);
    const bool isKnownShape
        = (m_sectorShift == 9 || m_sectorShift == 12) && littleEndian16(header, 32) == kMiniSectorShift;
    if (!isKnownShape || !readAllocationTable(header))
        return false;
    readMiniTable(header);
    const auto directorySectors = kDirectoryByteLimit >> m_sectorShift;
    addStreams(readChain(chainFrom(littleEndian32(header, 48), m_table, directorySectors)));
    return !m_streams.empty();
}

bool CompoundFile::readAllocationTable(std::string_view header)
{
    for (std::size_t index = 0; index < kHeaderTableLength; ++index) {
        const auto sector = littleEndian32(header, kHeaderTableOffset + index * 4);
        if (sector != kNoEntry && !appendAllocationSector(sector))
            return !m_table.empty();
    }
    auto next = littleEndian32(header, 68);
    const auto listLength = sectorByteCount() / 4 - 1;
    // Each round either lengthens the table, which is bounded, or ends the loop.
    while (sectorOffset(next) < m_bytes.byteCount()) {
        const auto list = readSector(next);
        const auto lengthBefore = m_table.size();
        for (std::size_t index = 0; index < listLength; ++index) {
            const auto sector = littleEndian32(list, index * 4);
            if (sector != kNoEntry && !appendAllocationSector(sector))
                return true;
        }
        if (m_table.size() == lengthBefore)
            break;
        next = littleEndian32(list, listLength * 4);
    }
    return !m_table.empty();
}

/// False when the table is complete: it tells of every sector that the file can have.
bool CompoundFile::appendAllocationSector(std::uint32_t sector)
{
    const auto sectorCount = m_bytes.byteCount() >> m_sectorShift;
    if (m_table.size() > sectorCount || m_table.size() >= kSectorLimit)
        return false;
    const auto bytes = readSector(sector);
    for (std::size_t offset = 0; offset < sectorByteCount(); offset += 4)
        m_table.push_back(offset < bytes.size() ? littleEndian32(bytes, offset) : kNoEntry);
    return true;
}

void CompoundFile::readMiniTable(std::string_view header)
{
    const auto bytes
        = readChain(chainFrom(littleEndian32(header, 60), m_table, kDirectoryByteLimit >> m_sectorShift));
    m_miniTable.reserve(bytes.size() / 4);
    for (std::size_t offset = 0; offset + 4 <= bytes.size(); offset += 4)
        m_miniTable.push_back(littleEndian32(bytes, offset));
}

void CompoundFile::addStreams(std::string_view directory)
{
    const auto entryCount = directory.size() / kEntryByteCount;
    if (entryCount == 0 || !isType(directory, EntryType::Root))
        return;
    const auto entryAt = [directory](std::size_t index) {
        return directory.substr(index * kEntryByteCount, kEntryByteCount);
    };
    m_miniContainer = chainFrom(firstSectorOf(directory), m_table, m_table.size());

    std::vector<bool> isSeen(entryCount);
    std::vector<std::uint32_t> open{littleEndian32(entryAt(0), 76)};
    while (!open.empty()) {
        const auto index = open.back();
        open.pop_back();
        if (index >= entryCount || isSeen[index])
            continue;
        isSeen[index] = true;
        const auto entry = entryAt(index);
        addStream(entry);
        open.push_back(littleEndian32(entry, 68));
        open.push_back(littleEndian32(entry, 72));
    }
}

void CompoundFile::addStream(std::string_view entry)
{
    const auto name = nameOf(entry);
    if (name.empty() || !isType(entry, EntryType::Stream))
        return;
    Stream stream;
    stream.firstSector = firstSectorOf(entry);
    // Files with small sectors leave rubbish in the upper half of the length.
    stream.byteCount = littleEndian(entry, 120, m_sectorShift == 9 ? 4 : 8);
    stream.isMini = stream.byteCount < m_miniCutoff;
    m_streams.try_emplace(name, std::move(stream));
}

CompoundFile::Table CompoundFile::chainFrom(std::uint32_t first, const Table& table,
                                            std::uint64_t maximumLength) const
{
    Table chain;
    const auto limit = std::min<std::uint64_t>(maximumLength, table.size());
    for (auto sector = first; sector < table.size() && chain.size() < limit; sector = table[sector])
        chain.push_back(sector);
    return chain;
}

std::uint64_t CompoundFile::sectorOffset(std::uint32_t sector) const
{
    return (std::uint64_t{sector} + 1) << m_sectorShift;
}

std::string CompoundFile::readSector(std::uint32_t sector) const
{
    std::string bytes(sectorByteCount(), '\0');
    bytes.resize(m_bytes.readAt(sectorOffset(sector), bytes).value_or(0));
    return bytes;
}

std::string CompoundFile::readChain(const Table& chain) const
{
    std::string bytes;
    for (const auto sector : chain) {
        bytes += readSector(sector);
        if (bytes.size() % sectorByteCount() != 0)
            break;
    }
    return bytes;
}

bool CompoundFile::hasStream(std::string_view name) const
{
    return m_streams.contains(name);
}

std::string CompoundFile::read(std::string_view name, std::uint64_t offset, std::size_t byteCount)
{
    const auto found = m_streams.find(name);
    if (found == m_streams.end() || offset >= found->second.byteCount)
        return {};
    auto& stream = found->second;
    const auto shift = stream.isMini ? kMiniSectorShift : m_sectorShift;
    if (!stream.chain)
        stream.chain = chainFrom(stream.firstSector, stream.isMini ? m_miniTable : m_table,
                                 (stream.byteCount >> shift) + 1);
    const auto wanted
        = static_cast<std::size_t>(std::min<std::uint64_t>(byteCount, stream.byteCount - offset));
    std::string bytes;
    while (bytes.size() < wanted) {
        const auto start = fileOffset(stream, offset + bytes.size());
        const auto sectorRest = (std::size_t{1} << shift) - ((offset + bytes.size()) & ((1U << shift) - 1));
        const auto done = bytes.size();
        bytes.resize(done + std::min<std::size_t>(sectorRest, wanted - done));
        const auto room = std::span(bytes).subspan(done);
        const auto count = start ? m_bytes.readAt(*start, room).value_or(0) : 0;
        if (count < room.size()) {
            bytes.resize(done + count);
            break;
        }
    }
    return bytes;
}

/// Where in the file a byte of the stream stands; none behind the end of the stream's chain.
std::optional<std::uint64_t> CompoundFile::fileOffset(const Stream& stream, std::uint64_t offset) const
{
    const auto within
        = [](const Table& chain, std::uint64_t position, unsigned shift) -> std::optional<std::uint64_t> {
        const auto index = position >> shift;
        return index < chain.size() ? std::optional<std::uint64_t>(chain[index]) : std::nullopt;
    };
    auto position = offset;
    auto sector = within(*stream.chain, position, stream.isMini ? kMiniSectorShift : m_sectorShift);
    if (sector && stream.isMini) {
        position = (*sector << kMiniSectorShift) + (offset & ((1U << kMiniSectorShift) - 1));
        sector = within(m_miniContainer, position, m_sectorShift);
    }
    if (!sector)
        return std::nullopt;
    return sectorOffset(static_cast<std::uint32_t>(*sector)) + (position & ((1U << m_sectorShift) - 1));
}
