#include "platform/foundation/NSURLBookmark.h"

#include "platform/foundation/NSPropertyList.h"

#include <cerrno>
#include <cstdint>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <utility>

namespace {

constexpr std::uint64_t kVersion = 1;
constexpr std::size_t kMaximumByteCount = 16384;
constexpr unsigned kMaximumEntryCount = 10'000;
constexpr std::u16string_view kVersionKey = u"version";
constexpr std::u16string_view kPathKey = u"path";
constexpr std::u16string_view kDeviceKey = u"device";
constexpr std::u16string_view kInodeKey = u"inode";

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

NSAny valueForKey(const NSAny::Dictionary& dictionary, std::u16string_view key)
{
    const auto entry = dictionary.find(key);
    return entry == dictionary.end() ? NSAny() : entry->second;
}

/// Inode numbers may need the 64th bit, which property lists keep as the sign.
std::optional<std::uint64_t> unsignedValue(const NSAny::Dictionary& dictionary, std::u16string_view key)
{
    const auto value = valueForKey(dictionary, key);
    return value.isInteger() ? std::optional(static_cast<std::uint64_t>(value.integerValue())) : std::nullopt;
}

std::optional<std::string> pathValue(const NSAny::Dictionary& dictionary)
{
    const auto value = valueForKey(dictionary, kPathKey);
    if (!value.data())
        return std::nullopt;
    const auto& path = value.data()->bytes;
    if (path.empty() || path.front() != '/' || path.find('\0') != std::string::npos)
        return std::nullopt;
    return path;
}

std::optional<Bookmark> bookmarkFromData(std::string_view data)
{
    if (data.size() > kMaximumByteCount)
        return std::nullopt;
    const auto list = NSPropertyListSerialization::propertyListWithData(data);
    const auto* dictionary = list.dictionary();
    if (!dictionary || unsignedValue(*dictionary, kVersionKey) != kVersion)
        return std::nullopt;
    auto path = pathValue(*dictionary);
    const auto device = unsignedValue(*dictionary, kDeviceKey);
    const auto inode = unsignedValue(*dictionary, kInodeKey);
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
    const NSAny bookmark = NSAny::Dictionary{{std::u16string(kVersionKey), kVersion},
                                             {std::u16string(kPathKey), NSData{path}},
                                             {std::u16string(kDeviceKey), status.st_dev},
                                             {std::u16string(kInodeKey), status.st_ino}};
    auto data
        = NSPropertyListSerialization::dataWithPropertyList(bookmark, NSPropertyListFormat::Binary, error);
    return data ? std::optional(std::move(data->bytes)) : std::nullopt;
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
