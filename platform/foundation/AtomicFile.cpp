#include "platform/foundation/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace {

constexpr mode_t kOwnerOnly = 0600;

class SystemOperations final : public FileOperations {
public:
    FileDescriptor create(const std::string& path) override
    {
        constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC;
        return FileDescriptor(::open(path.c_str(), kFlags, kOwnerOnly));
    }

    bool write(int descriptor, std::string_view bytes) override { return writeAll(descriptor, bytes); }

    bool sync(int descriptor) override { return ::fsync(descriptor) == 0; }

    bool rename(const std::string& from, const std::string& to) override
    {
        return std::rename(from.c_str(), to.c_str()) == 0;
    }

    bool syncFolder(const std::string& path) override
    {
        const FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        return folder.isValid() && ::fsync(folder.get()) == 0;
    }
};

bool writeNew(std::string_view bytes, const std::string& path, FileOperations& operations)
{
    const auto file = operations.create(path);
    return file.isValid() && operations.write(file.get(), bytes) && operations.sync(file.get());
}

} // namespace

FileOperations& FileOperations::system()
{
    static SystemOperations operations;
    return operations;
}

bool writeFileAtomically(std::string_view bytes, const std::string& path, FileOperations& operations,
                         NSError* error)
{
    std::error_code unresolved; // A path that cannot be resolved fails by its own name below.
    auto target = std::filesystem::weakly_canonical(path, unresolved);
    if (unresolved)
        target = path;
    const auto beside = target.native() + ".new";
    if (!writeNew(bytes, beside, operations) || !operations.rename(beside, target.native())) {
        setError(error, NSError::errorWithErrno(errno, path));
        (void)::unlink(beside.c_str()); // A rest that stays is overwritten by the next write.
        return false;
    }
    if (!operations.syncFolder(target.parent_path().native())) {
        setError(error, NSError::errorWithErrno(errno, path));
        return false;
    }
    return true;
}
