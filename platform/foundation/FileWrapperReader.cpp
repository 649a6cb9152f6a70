#include "platform/foundation/FileWrapperReader.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSURLResourceValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr double kReferenceDate = 978307200; // 2001-01-01 in Unix time.
constexpr unsigned kPermissionBits = 0777;

struct CloseFolder {
    void operator()(DIR* folder) const { (void)::closedir(folder); } // Nothing was written through it.
};

using Folder = std::unique_ptr<DIR, CloseFolder>;

NSDate dateFromSeconds(std::int64_t seconds, double nanoseconds)
{
    return {static_cast<double>(seconds) - kReferenceDate + nanoseconds / 1e9};
}

NSFileAttributes attributesOf(int descriptor, const struct stat& status)
{
    NSFileAttributes attributes;
    attributes.posixPermissions = status.st_mode & kPermissionBits;
    attributes.modificationDate
        = dateFromSeconds(status.st_mtim.tv_sec, static_cast<double>(status.st_mtim.tv_nsec));
    const auto values = NSURLResourceValues::resourceValuesOfFile(descriptor);
    attributes.creationDate = values.creationDate;
    attributes.extensionHidden = values.hasHiddenExtension.value_or(false);
    return attributes;
}

/// The name that a member wanted when its folder gave it a unique one.
std::u16string withoutUniquePrefix(const std::u16string& name)
{
    constexpr std::u16string_view kDigits = u"0123456789";
    const auto digits = std::min(name.find_first_not_of(kDigits), name.size());
    if (digits == 0 || name.compare(digits, NSFileWrapperUniqueMark.size(), NSFileWrapperUniqueMark) != 0)
        return name;
    auto wanted = name.substr(digits + NSFileWrapperUniqueMark.size());
    return isFileName(std::u16string_view(wanted)) ? wanted : name;
}

} // namespace

/// One reading, with what is left of its limits.
class FileWrapperReader::Walk {
public:
    explicit Walk(NSError* error)
        : m_error(error)
    {
    }

    /// `path` is the entry's whole path, for messages.
    NSFileWrapper::Ref readEntry(int folder, const std::string& name, const std::string& path,
                                 std::size_t depth)
    {
        struct stat status { };

        if (depth > NSFileWrapper::kMostDepth)
            return failTooLarge(path);
        if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            return fail(errno, path);
        if (S_ISLNK(status.st_mode))
            return readLink(folder, name, path);
        // A FIFO or a device must not even be opened; what a name stands for is looked at again below.
        if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode))
            return fail(ENOTSUP, path);
        constexpr int kFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
        FileDescriptor file(::openat(folder, name.c_str(), kFlags));
        if (!file.isValid() || ::fstat(file.get(), &status) != 0)
            return fail(errno, path);
        const auto attributes = attributesOf(file.get(), status);
        auto wrapper = S_ISDIR(status.st_mode) ? readFolder(std::move(file), path, depth)
                                               : readRegularFile(file.get(), status, path);
        if (wrapper)
            wrapper->setFileAttributes(attributes);
        return wrapper;
    }

private:
    NSFileWrapper::Ref readRegularFile(int file, const struct stat& status, const std::string& path)
    {
        if (!S_ISREG(status.st_mode))
            return fail(ENOTSUP, path);
        if (static_cast<std::size_t>(status.st_size) > m_bytesLeft)
            return failTooLarge(path);
        auto bytes = readFile(file, m_bytesLeft + 1);
        if (!bytes)
            return fail(errno, path);
        if (bytes->size() > m_bytesLeft)
            return failTooLarge(path);
        m_bytesLeft -= bytes->size();
        return NSFileWrapper::initRegularFileWithContents({std::move(*bytes)});
    }

    NSFileWrapper::Ref readLink(int folder, const std::string& name, const std::string& path)
    {
        std::string destination(PATH_MAX, '\0');
        const auto length = ::readlinkat(folder, name.c_str(), destination.data(), destination.size());
        if (length < 0)
            return fail(errno, path);
        destination.resize(static_cast<std::size_t>(length));
        auto wrapper = std::make_shared<NSFileWrapper>(NSFileType::SymbolicLink);
        wrapper->m_linkDestination = std::move(destination);
        return wrapper;
    }

    NSFileWrapper::Ref readFolder(FileDescriptor descriptor, const std::string& path, std::size_t depth)
    {
        const Folder folder(::fdopendir(descriptor.get()));
        if (!folder)
            return fail(errno, path);
        (void)descriptor.release(); // It is the folder's now.
        auto wrapper = std::make_shared<NSFileWrapper>(NSFileType::Directory);
        errno = 0;
        while (const auto* entry
               = ::readdir(folder.get())) { // NOLINT(concurrency-mt-unsafe): one's own stream
            const std::string name(&entry->d_name[0]);
            if (isFileName(std::string_view(name))
                && !addMember(*wrapper, ::dirfd(folder.get()), name, path, depth))
                return nullptr;
            errno = 0;
        }
        return errno == 0 ? wrapper : fail(errno, path);
    }

    bool addMember(NSFileWrapper& wrapper, int folder, const std::string& name, const std::string& path,
                   std::size_t depth)
    {
        const auto memberPath = path + "/" + name;
        if (m_membersLeft == 0)
            return failTooLarge(memberPath) != nullptr;
        --m_membersLeft;
        const auto member = readEntry(folder, name, memberPath, depth + 1);
        if (!member)
            return false;
        FileWrapperReader::setNames(*member, name);
        wrapper.m_fileWrappers.emplace(textFromFileName(name), member);
        return true;
    }

    NSFileWrapper::Ref fail(int code, const std::string& path)
    {
        setError(m_error, NSError::errorWithErrno(code, path));
        return nullptr;
    }

    NSFileWrapper::Ref failTooLarge(const std::string& path)
    {
        setError(m_error,
                 NSError::errorWithCode(NSCocoaError::FileReadTooLarge,
                                        fmt::format("{}: beyond the limits of a file wrapper", path)));
        return nullptr;
    }

    NSError* m_error;
    std::size_t m_bytesLeft = NSFileWrapper::kMostBytes;
    std::size_t m_membersLeft = NSFileWrapper::kMostMembers;
};

void FileWrapperReader::setNames(NSFileWrapper& wrapper, std::string_view name)
{
    wrapper.setFilename(textFromFileName(name));
    wrapper.setPreferredFilename(withoutUniquePrefix(*wrapper.filename()));
}

NSFileWrapper::Ref FileWrapperReader::read(const NSURL& url, NSError* error)
{
    const auto path = url.isFileURL() ? url.path() : std::string();
    if (path.empty()) {
        setError(error, NSError::errorWithErrno(EINVAL, url.absoluteString()));
        return nullptr;
    }
    auto wrapper = Walk(error).readEntry(AT_FDCWD, path, path, 0);
    if (wrapper)
        setNames(*wrapper, url.lastPathComponent());
    return wrapper;
}
