#include "platform/foundation/NSURLBookmark.h"

#include <plist/plist.h>

#include <cerrno>
#include <cstdint>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <type_traits>

namespace {

constexpr std::uint64_t kVersion = 1;
constexpr std::size_t kMaximumByteCount = 16384;
constexpr unsigned kMaximumEntryCount = 10'000;
constexpr std::string_view kBinaryPropertyListStart = "bplist00";
constexpr const char* kVersionKey = "version";
constexpr const char* kPathKey = "path";
constexpr const char* kDeviceKey = "device";
constexpr const char* kInodeKey = "inode";

struct PropertyListDeleter {
    void operator()(void* node) const { plist_free(node); }
};

using PropertyList = std::unique_ptr<std::remove_pointer_t<plist_t>, PropertyListDeleter>;

struct FolderCloser {
    void operator()(DIR* folder) const { (void)::closedir(folder); } // It was only read.
};

using Folder = std::unique_ptr<DIR, FolderCloser>;

struct Bookmark {
    std::string path;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
};

bool isFileOf(const Bookmark& bookmark, const std::string& path)
{
    struct stat status { };

    return ::lstat(path.c_str(), &status) == 0 && status.st_dev == bookmark.device
        && status.st_ino == bookmark.inode;
}

std::optional<std::uint64_t> unsignedValue(plist_t dictionary, const char* key)
{
    plist_t node = plist_dict_get_item(dictionary, key);
    if (!node || plist_get_node_type(node) != PLIST_UINT)
        return std::nullopt;
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    return value;
}

std::optional<std::string> pathValue(plist_t dictionary)
{
    plist_t node = plist_dict_get_item(dictionary, kPathKey);
    if (!node || plist_get_node_type(node) != PLIST_DATA)
        return std::nullopt;
    std::uint64_t length = 0;
    const char* bytes = plist_get_data_ptr(node, &length);
    if (!bytes || length == 0 || length > kMaximumByteCount)
        return std::nullopt;
    std::string path(bytes, static_cast<std::size_t>(length));
    if (path.front() != '/' || path.find('\0') != std::string::npos)
        return std::nullopt;
    return path;
}

std::optional<Bookmark> bookmarkFromData(std::string_view data)
{
    if (data.size() > kMaximumByteCount || !data.starts_with(kBinaryPropertyListStart))
        return std::nullopt;
    plist_t root = nullptr;
    plist_from_bin(data.data(), static_cast<std::uint32_t>(data.size()), &root);
    const PropertyList list(root);
    if (!list || plist_get_node_type(root) != PLIST_DICT || unsignedValue(root, kVersionKey) != kVersion)
        return std::nullopt;
    auto path = pathValue(root);
    const auto device = unsignedValue(root, kDeviceKey);
    const auto inode = unsignedValue(root, kInodeKey);
    if (!path || !device || !inode)
        return std::nullopt;
    return Bookmark{std::move(*path), *device, *inode};
}

std::optional<std::string> pathAfterRenaming(const Bookmark& bookmark)
{
    const auto slash = bookmark.path.rfind('/');
    const auto folderPath = bookmark.path.substr(0, slash + 1);
    const Folder folder(::opendir(folderPath.c_str()));
    if (!folder)
        return std::nullopt;
    for (unsigned count = 0; count < kMaximumEntryCount; ++count) {
        const dirent* entry
            = ::readdir(folder.get()); // NOLINT(concurrency-mt-unsafe): the stream is ours alone
        if (!entry)
            return std::nullopt;
        if (entry->d_ino == bookmark.inode && isFileOf(bookmark, folderPath + entry->d_name))
            return folderPath + entry->d_name;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> bookmarkDataForURL(const NSURL& url, NSError* error)
{
    const auto path = url.isFileURL() ? url.path() : std::string();

    struct stat status { };

    if (path.empty() || ::lstat(path.c_str(), &status) != 0) {
        setError(error, NSError::errorWithErrno(path.empty() ? EINVAL : errno, url.absoluteString()));
        return std::nullopt;
    }
    const PropertyList list(plist_new_dict());
    plist_dict_set_item(list.get(), kVersionKey, plist_new_uint(kVersion));
    plist_dict_set_item(list.get(), kPathKey, plist_new_data(path.data(), path.size()));
    plist_dict_set_item(list.get(), kDeviceKey, plist_new_uint(status.st_dev));
    plist_dict_set_item(list.get(), kInodeKey, plist_new_uint(status.st_ino));
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(list.get(), &bytes, &length);
    const std::unique_ptr<char, decltype(&plist_to_bin_free)> owner(bytes, &plist_to_bin_free);
    return std::string(bytes, length);
}

std::optional<NSURL> URLByResolvingBookmarkData(std::string_view bookmarkData, NSError* error)
{
    const auto bookmark = bookmarkFromData(bookmarkData);
    if (!bookmark) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileReadCorruptFile, "The data is no bookmark."));
        return std::nullopt;
    }
    if (isFileOf(*bookmark, bookmark->path))
        return NSURL::fileURLWithPath(bookmark->path);
    if (const auto path = pathAfterRenaming(*bookmark))
        return NSURL::fileURLWithPath(*path);

    struct stat status { };

    if (::lstat(bookmark->path.c_str(), &status) == 0)
        return NSURL::fileURLWithPath(bookmark->path);
    setError(error, NSError::errorWithErrno(errno, bookmark->path));
    return std::nullopt;
}
