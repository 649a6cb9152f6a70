#include "platform/media/ZipWriter.h"

#include <cerrno>
#include <cstdint>
#include <memory>
#include <zip.h>

namespace {

/// Of 1 to 9. The usual one, 6, takes XML of texts half as much time again and more, for a tenth of the size.
constexpr zip_uint32_t kDeflateLevel = 1;
/// Year, month and day as the format packs them.
constexpr zip_uint16_t kFirstDate = (0U << 9U) | (1U << 5U) | 1U;

struct SourceFreer {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};

struct ArchiveDiscarder {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};

using Source = std::unique_ptr<zip_source_t, SourceFreer>;
using Archive = std::unique_ptr<zip_t, ArchiveDiscarder>;

bool addEntry(zip_t& archive, const ZipEntry& entry)
{
    Source source(zip_source_buffer(&archive, entry.bytes.data(), entry.bytes.size(), 0));
    if (!source)
        return false;
    const auto index = zip_file_add(&archive, entry.name.c_str(), source.get(), ZIP_FL_ENC_GUESS);
    if (index < 0)
        return false;
    (void)source.release(); // The archive owns it now.
    const auto place = static_cast<zip_uint64_t>(index);
    const auto method = entry.isDeflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
    const auto level = entry.isDeflated ? kDeflateLevel : 0;
    return zip_set_file_compression(&archive, place, method, level) == 0
        && zip_file_set_dostime(&archive, place, 0, kFirstDate, 0) == 0;
}

bool writeEntries(zip_source_t& target, const std::vector<ZipEntry>& entries)
{
    zip_source_keep(&target);
    Archive archive(zip_open_from_source(&target, ZIP_TRUNCATE, nullptr));
    if (!archive) {
        zip_source_free(&target);
        return false;
    }
    for (const auto& entry : entries) {
        if (!addEntry(*archive, entry))
            return false;
    }
    if (zip_close(archive.get()) != 0)
        return false;
    (void)archive.release(); // Closing took it.
    return true;
}

std::optional<std::string> bytesOf(zip_source_t& source)
{
    if (zip_source_open(&source) != 0)
        return std::nullopt;
    std::optional<std::string> bytes;
    if (zip_source_seek(&source, 0, SEEK_END) == 0) {
        const auto count = zip_source_tell(&source);
        bytes.emplace(static_cast<std::size_t>(count > 0 ? count : 0), '\0');
        if (zip_source_seek(&source, 0, SEEK_SET) != 0
            || zip_source_read(&source, bytes->data(), bytes->size()) != count)
            bytes.reset();
    }
    (void)zip_source_close(&source); // It was only read.
    return bytes;
}

} // namespace

std::optional<std::string> zipFileOf(const std::vector<ZipEntry>& entries, NSError* error)
{
    const Source target(zip_source_buffer_create(nullptr, 0, 0, nullptr));
    auto bytes = target && writeEntries(*target, entries) ? bytesOf(*target) : std::nullopt;
    if (!bytes)
        setError(error, NSError::errorWithErrno(ENOMEM, "the zip file"));
    return bytes;
}
