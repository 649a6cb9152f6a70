#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSError.h"

#include <string>
#include <string_view>

/// The file-system calls by which a file is written. Tests put others in their place, to see what is left
/// when one of them fails. Each sets errno when it fails.
class FileOperations {
public:
    FileOperations() = default;
    FileOperations(const FileOperations&) = delete;
    FileOperations& operator=(const FileOperations&) = delete;
    virtual ~FileOperations() = default;

    /// The calls of the system.
    [[nodiscard]] static FileOperations& system();

    /// An empty file for writing, for its owner only. What has the name is cut to nothing; a link is refused.
    [[nodiscard]] virtual FileDescriptor create(const std::string& path) = 0;
    [[nodiscard]] virtual bool write(int descriptor, std::string_view bytes) = 0;
    /// Until what was written is on the disk.
    [[nodiscard]] virtual bool sync(int descriptor) = 0;
    [[nodiscard]] virtual bool rename(const std::string& from, const std::string& to) = 0;
    /// Until the names in a folder are on the disk.
    [[nodiscard]] virtual bool syncFolder(const std::string& path) = 0;
};

/// Gives a file new contents, or makes it, readable by its owner only. Whenever the process or the machine
/// stops, the file is the old one or the new one, and the new one once this returned true. On failure, with
/// the reason in `error`, it is the old one, except when only the folder could not be synced.
///
/// The bytes go through a file of the same name with ".new", so writers of one file need a lock. A link is
/// followed, and what it points at is replaced.
[[nodiscard]] bool writeFileAtomically(std::string_view bytes, const std::string& path,
                                       FileOperations& operations, NSError* error = nullptr);
