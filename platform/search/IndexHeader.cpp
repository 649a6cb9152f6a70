#include "platform/search/IndexHeader.h"

#include <sqlite3.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t kByteCount = 100;
constexpr std::size_t kUserVersionOffset = 60;
constexpr std::size_t kApplicationIDOffset = 68;
constexpr std::string_view kMagic("SQLite format 3\0", 16);

using Bytes = std::array<char, kByteCount>;

std::uint32_t bigEndian32(const Bytes& bytes, std::size_t offset)
{
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < sizeof(value); ++index)
        value = (value << 8U) | static_cast<unsigned char>(bytes.at(offset + index));
    return value;
}

// Through SQLite's own file layer: to open and close a database file behind its back would drop the locks
// that other connections of this process hold on it, as POSIX locks belong to the process and not to the
// descriptor.
int readThroughFileLayer(const std::string& path, Bytes& bytes)
{
    sqlite3_vfs* layer = sqlite3_vfs_find(nullptr);
    if (!layer)
        return SQLITE_ERROR;
    const auto storage
        = std::make_unique<std::max_align_t[]>( // NOLINT(modernize-avoid-c-arrays): of run-time size
            static_cast<std::size_t>(layer->szOsFile) / sizeof(std::max_align_t) + 1);
    auto* file = reinterpret_cast<sqlite3_file*>(storage.get());
    file->pMethods = nullptr;
    // Links are followed before the layer sees the name, which has to end in two NULs and to stay with the
    // file.
    std::string name(static_cast<std::size_t>(layer->mxPathname) + 2, '\0');
    int flags = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READONLY;
    int code = layer->xFullPathname(layer, path.c_str(), layer->mxPathname, name.data());
    if (code == SQLITE_OK || code == SQLITE_OK_SYMLINK)
        code = layer->xOpen(layer, name.c_str(), file, flags, &flags);
    if (code == SQLITE_OK)
        code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0);
    if (file->pMethods)
        (void)file->pMethods->xClose(file); // It was only read.
    return code;
}

} // namespace

IndexHeader::Result IndexHeader::read(const std::string& path, IndexHeader& header)
{
    struct stat status { };

    if (::stat(path.c_str(), &status) != 0 || ::access(path.c_str(), R_OK) != 0)
        return Result::Unreadable;
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return Result::Unreadable;
    }
    Bytes bytes{};
    if (readThroughFileLayer(path, bytes) != SQLITE_OK
        || std::string_view(bytes.data(), kMagic.size()) != kMagic)
        return Result::Foreign;
    header.applicationID = bigEndian32(bytes, kApplicationIDOffset);
    header.userVersion = bigEndian32(bytes, kUserVersionOffset);
    return Result::Read;
}
