#include "platform/foundation/NSFileManager.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr mode_t kFolderMode = 0700;
constexpr mode_t kFileMode = 0600;

bool report(NSError* error, int code, const std::string& what)
{
    setError(error, NSError::errorWithErrno(code, what));
    return false;
}

bool makeFolder(const std::string& path, bool mayExist, NSError* error)
{
    if (::mkdir(path.c_str(), kFolderMode) == 0)
        return true;
    const int code = errno;
    std::error_code ignored; // Only the first failure is worth reporting.
    if (code == EEXIST && mayExist && std::filesystem::is_directory(path, ignored))
        return true;
    return report(error, code, path);
}

} // namespace

NSURL NSFileManager::temporaryDirectory()
{
    const char* named = std::getenv("TMPDIR"); // NOLINT(concurrency-mt-unsafe): nobody sets variables
    return NSURL::fileURLWithPath(named && *named ? named : "/tmp");
}

bool NSFileManager::createDirectoryAtURL(const NSURL& url, bool withIntermediateDirectories, NSError* error)
{
    const auto path = url.isFileURL() ? url.path() : std::string();
    if (path.empty())
        return report(error, EINVAL, url.absoluteString());
    if (withIntermediateDirectories) {
        for (auto slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1)) {
            if (!makeFolder(path.substr(0, slash), true, error))
                return false;
        }
    }
    return makeFolder(path, withIntermediateDirectories, error);
}

bool NSFileManager::removeItemAtURL(const NSURL& url, NSError* error)
{
    const auto path = url.isFileURL() ? url.path() : std::string();
    if (path.empty())
        return report(error, EINVAL, url.absoluteString());
    std::error_code failure;
    const auto count = std::filesystem::remove_all(path, failure);
    if (failure)
        return report(error, failure.value(), path);
    return count > 0 || report(error, ENOENT, path);
}

std::u16string NSFileManager::displayNameAtPath(std::u16string_view path)
{
    return lastPathComponent(path);
}

std::string NSFileManager::fileSystemRepresentation(std::u16string_view path)
{
    return UTF8FromUTF16(path.substr(0, path.find(u'\0')));
}

std::u16string NSFileManager::stringWithFileSystemRepresentation(const char* bytes, std::size_t length)
{
    return UTF16FromUTF8({bytes, length});
}

std::optional<NSURL> writeNewFile(std::string_view bytes, const NSURL& folder, std::string_view name,
                                  NSError* error)
{
    while (name.ends_with('/'))
        name.remove_suffix(1);
    name = name.substr(name.rfind('/') + 1);
    if (name.empty() || name == "." || name == ".." || name.find('\0') != std::string_view::npos) {
        report(error, EINVAL, std::string(name));
        return std::nullopt;
    }
    const auto url = folder.URLByAppendingPathComponent(name);
    const auto path = url.path();
    const FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kFileMode));
    if (!file.isValid()) {
        report(error, errno, path);
        return std::nullopt;
    }
    if (!writeAll(file.get(), bytes)) {
        report(error, errno, path);
        (void)::unlink(
            path.c_str()); // What is left of a failed write is of no use; the write's error is reported.
        return std::nullopt;
    }
    return url;
}
