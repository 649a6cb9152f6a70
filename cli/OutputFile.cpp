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
    return writeAll(file.get(), bytes) || fail(error, errno, path);
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

bool isStandardOutput(std::string_view path)
{
    return path == "-" || path == "/dev/stdout";
}

bool writeStandardOutput(std::string_view bytes, NSError* error)
{
    return writeAll(STDOUT_FILENO, bytes) || fail(error, errno, "standard output");
}

bool writeOutputFile(std::string_view bytes, const std::string& path, NSError* error)
{
    struct stat status { };

    if (isStandardOutput(path))
        return writeStandardOutput(bytes, error);
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
