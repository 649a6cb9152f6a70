#include "platform/foundation/PackageOperations.h"

#include "platform/foundation/FileNameText.h"
#include "platform/foundation/FileWrapperReader.h"
#include "platform/foundation/NSURLResourceValues.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <memory>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr mode_t kFileMode = 0666; // Less what the user's mask takes away.
constexpr mode_t kFolderMode = 0777;
constexpr mode_t kRemovableFolderMode = 0700;
constexpr mode_t kPermissionBits = 0777;
/// Folders deeper than this are not ours; a file wrapper has fewer levels.
constexpr std::size_t kMostRemovalDepth = 64;

struct CloseFolder {
    void operator()(DIR* folder) const { (void)::closedir(folder); } // Nothing was written through it.
};

/// The time of a date, cut to what fits; the epoch for what is no number.
timespec timeOfDate(NSDate date)
{
    constexpr double kReferenceDate = 978307200; // 2001-01-01 in Unix time.
    constexpr double kBound = 253402300800; // The year 10000.
    const double seconds = date.timeIntervalSinceReferenceDate + kReferenceDate;
    if (!(std::fabs(seconds) < kBound))
        return {};
    const double whole = std::floor(seconds);
    return {static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
}

FileDescriptor openFolderIn(int folder, const std::string& name)
{
    return FileDescriptor(::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// A folder that is to be emptied, whatever its permissions.
FileDescriptor openFolderToRemove(int folder, const std::string& name)
{
    auto opened = openFolderIn(folder, name);
    if (!opened.isValid() && errno == EACCES
        && ::fchmodat(folder, name.c_str(), kRemovableFolderMode, AT_SYMLINK_NOFOLLOW) == 0)
        opened = openFolderIn(folder, name);
    if (opened.isValid())
        (void)::fchmod(opened.get(), kRemovableFolderMode); // Without it a removal below fails and says why.
    return opened;
}

std::vector<std::string> namesIn(const FileDescriptor& folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> stream(::fdopendir(::dup(folder.get())));
    if (!stream)
        return names;
    while (const auto* entry = ::readdir(stream.get())) { // NOLINT(concurrency-mt-unsafe): one's own stream
        const std::string name(&entry->d_name[0]);
        if (isFileName(std::string_view(name)))
            names.push_back(name);
    }
    return names;
}

bool removeTree(int folder, const std::string& name, std::size_t depth)
{
    if (::unlinkat(folder, name.c_str(), 0) == 0)
        return true;
    if (errno != EISDIR && errno != EPERM)
        return false;
    const auto subfolder = openFolderToRemove(folder, name);
    if (!subfolder.isValid() || depth >= kMostRemovalDepth)
        return false;
    int reason = 0;
    for (const auto& member : namesIn(subfolder)) {
        if (!removeTree(subfolder.get(), member, depth + 1) && reason == 0)
            reason = errno;
    }
    if (::unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0)
        return true;
    errno = reason == 0 ? errno : reason;
    return false;
}

unsigned renameFlags(RenameKind kind)
{
    if (kind == RenameKind::Exchange)
        return RENAME_EXCHANGE;
    return kind == RenameKind::NoReplace ? RENAME_NOREPLACE : 0;
}

class SystemOperations final : public PackageOperations {
public:
    FileDescriptor openFolderAtPath(const std::string& path) override
    {
        return FileDescriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }

    FileDescriptor openFolder(int folder, const std::string& name) override
    {
        return openFolderIn(folder, name);
    }

    FileDescriptor createFile(int folder, const std::string& name) override
    {
        constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        return FileDescriptor(::openat(folder, name.c_str(), kFlags, kFileMode));
    }

    bool createFolder(int folder, const std::string& name) override
    {
        return ::mkdirat(folder, name.c_str(), kFolderMode) == 0;
    }

    bool createLink(const std::string& destination, int folder, const std::string& name) override
    {
        return ::symlinkat(destination.c_str(), folder, name.c_str()) == 0;
    }

    bool write(int file, std::string_view bytes) override { return writeAll(file, bytes); }

    bool setPermissions(int file, unsigned permissions) override
    {
        return ::fchmod(file, static_cast<mode_t>(permissions)) == 0;
    }

    bool setModificationDate(int file, NSDate date) override
    {
        const std::array<timespec, 2> times{timespec{0, UTIME_OMIT}, timeOfDate(date)};
        return ::futimens(file, times.data()) == 0;
    }

    bool sync(int file) override { return ::fsync(file) == 0; }

    bool rename(int folder, const std::string& from, const std::string& to, RenameKind kind) override
    {
        return ::renameat2(folder, from.c_str(), folder, to.c_str(), renameFlags(kind)) == 0;
    }

    bool remove(int folder, const std::string& name) override { return removeTree(folder, name, 0); }

    void setExtensionHidden(int file) override
    {
        (void)::fsetxattr(file, kExtensionHiddenAttribute, "1", 1, 0); // As the declaration says.
    }

    void inherit(int folder, const std::string& name, int file) override
    {
        struct stat old { };

        struct stat made { };

        constexpr int kFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
        if (::fstatat(folder, name.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0 || ::fstat(file, &made) != 0
            || (old.st_mode & S_IFMT) != (made.st_mode & S_IFMT))
            return;
        const mode_t own = S_ISDIR(made.st_mode) ? S_IRWXU : S_IRUSR;
        (void)::fchmod(file,
                       (old.st_mode & kPermissionBits) | own); // As the declaration says, here and below.
        const FileDescriptor opened(::openat(folder, name.c_str(), kFlags));
        if (opened.isValid())
            (void)NSURLResourceValues::resourceValuesOfFile(opened.get()).setForFile(file);
    }
};

} // namespace

PackageOperations& PackageOperations::system()
{
    static SystemOperations operations;
    return operations;
}
