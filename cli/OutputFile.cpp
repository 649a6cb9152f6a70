#include "cli/OutputFile.h"

#include "documents/DocumentPlace.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSFileWrapper.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr unsigned kPermissionBits = 0777;

bool fail(NSError* error, int errnoValue, const std::string& path)
{
    setError(error, NSError::errorWithErrno(errnoValue, path));
    return false;
}

bool writeThrough(std::string_view bytes, const std::string& path, NSError* error)
{
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.isValid())
        return fail(error, errno, path);
    while (!bytes.empty()) {
        const auto written = ::write(file.get(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return fail(error, errno, path);
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Where links lead to; the path itself when there is nothing yet.
std::string resolvedPath(const std::string& path)
{
    struct Free {
        void operator()(char* text) const { std::free(text); } // NOLINT(*-owning-memory): realpath's.
    };

    const std::unique_ptr<char, Free> resolved(::realpath(path.c_str(), nullptr));
    return resolved ? resolved.get() : path;
}

bool replaceFile(std::string_view bytes, const std::string& path, std::optional<unsigned> permissions,
                 NSError* error)
{
    const auto file = NSFileWrapper::initRegularFileWithContents(NSData{std::string(bytes)});
    auto attributes = file->fileAttributes();
    attributes.posixPermissions = permissions;
    file->setFileAttributes(attributes);
    return file->writeToURL(NSURL::fileURLWithPath(path), NSFileWrapperWritingAtomic, std::nullopt, error);
}

} // namespace

bool writeOutputFile(std::string_view bytes, const std::string& path, NSError* error)
{
    struct stat status { };

    if (isInPackage(NSURL::fileURLWithPath(path), error))
        return false;
    if (::stat(path.c_str(), &status) != 0)
        return errno == ENOENT ? replaceFile(bytes, path, std::nullopt, error) : fail(error, errno, path);
    if (S_ISDIR(status.st_mode))
        return fail(error, EISDIR, path);
    if (!S_ISREG(status.st_mode))
        return writeThrough(bytes, path, error);
    return replaceFile(bytes, resolvedPath(path), status.st_mode & kPermissionBits, error);
}
