#pragma once

#include "platform/media/SourceBytes.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The streams in the outermost storage of a compound file, the container of office documents before zip
/// files.
///
/// A reader of its own because the directory of such a file is a tree of links that may be as deep as the
/// file is long: here it is walked without recursion, every chain of sectors is bounded by the file's size,
/// and only the directory and the allocation table are held in memory (about 1% of the file's size, 80 MB at
/// most).
class CompoundFile {
public:
    /// None when the bytes are no compound file or its tables make no sense. `bytes` must outlive the file.
    [[nodiscard]] static std::optional<CompoundFile> open(const SourceBytes& bytes);

    /// Whether the bytes begin as a compound file does.
    [[nodiscard]] static bool isCompoundFile(std::string_view firstBytes);

    /// Names are compared without ASCII case; only streams with ASCII names are found.
    [[nodiscard]] bool hasStream(std::string_view name) const;
    /// The bytes from `offset` of a stream on: `byteCount` of them, or fewer where the stream ends or its
    /// chain breaks.
    [[nodiscard]] std::string read(std::string_view name, std::uint64_t offset, std::size_t byteCount);

private:
    using Table = std::vector<std::uint32_t>;

    struct Stream {
        std::uint32_t firstSector = 0;
        std::uint64_t byteCount = 0;
        bool isMini = false;
        std::optional<Table> chain;
    };

    struct NameOrder {
        using is_transparent = void;
        [[nodiscard]] bool operator()(std::string_view left, std::string_view right) const;
    };

    explicit CompoundFile(const SourceBytes& bytes);

    [[nodiscard]] bool readTables();
    [[nodiscard]] bool readAllocationTable(std::string_view header);
    [[nodiscard]] bool appendAllocationSector(std::uint32_t sector);
    void readMiniTable(std::string_view header);
    void addStreams(std::string_view directory);
    void addStream(std::string_view entry);

    [[nodiscard]] Table chainFrom(std::uint32_t first, const Table& table, std::uint64_t maximumLength) const;
    [[nodiscard]] std::string readSector(std::uint32_t sector) const;
    [[nodiscard]] std::string readChain(const Table& chain) const;
    [[nodiscard]] std::optional<std::uint64_t> fileOffset(const Stream& stream, std::uint64_t offset) const;
    [[nodiscard]] std::uint64_t sectorOffset(std::uint32_t sector) const;

    [[nodiscard]] std::size_t sectorByteCount() const { return std::size_t{1} << m_sectorShift; }

    SourceBytes m_bytes;
    unsigned m_sectorShift = 0;
    std::uint32_t m_miniCutoff = 0;
    Table m_table;
    Table m_miniTable;
    Table m_miniContainer;
    std::map<std::string, Stream, NameOrder> m_streams;
};
