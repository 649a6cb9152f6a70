#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSAny.h"

#include <string>
#include <string_view>

/// How a name takes another's place. An exchange gives each what the other had.
enum class RenameKind { Replace, NoReplace, Exchange };

/// The file-system calls by which a package is written. Tests put others in their place, to see what is left
/// when one of them fails or is the last. Names are looked up in the folder of the descriptor, and links are
/// not followed. Each sets errno when it fails.
class PackageOperations {
public:
    PackageOperations() = default;
    PackageOperations(const PackageOperations&) = delete;
    PackageOperations& operator=(const PackageOperations&) = delete;
    virtual ~PackageOperations() = default;

    /// The calls of the system.
    [[nodiscard]] static PackageOperations& system();

    [[nodiscard]] virtual FileDescriptor openFolder(int folder, const std::string& name) = 0;
    /// A new file for writing; fails when the name is taken.
    [[nodiscard]] virtual FileDescriptor createFile(int folder, const std::string& name) = 0;
    [[nodiscard]] virtual bool createFolder(int folder, const std::string& name) = 0;
    [[nodiscard]] virtual bool createLink(const std::string& destination, int folder, const std::string& name)
        = 0;
    [[nodiscard]] virtual bool write(int file, std::string_view bytes) = 0;
    [[nodiscard]] virtual bool setPermissions(int file, unsigned permissions) = 0;
    [[nodiscard]] virtual bool setModificationDate(int file, NSDate date) = 0;
    /// Until what was written is on the disk, or the names of a folder are.
    [[nodiscard]] virtual bool sync(int file) = 0;
    [[nodiscard]] virtual bool rename(int folder, const std::string& from, const std::string& to,
                                      RenameKind kind)
        = 0;
    /// A file, a link, or a folder with all it holds.
    [[nodiscard]] virtual bool remove(int folder, const std::string& name) = 0;

    /// Not every file system can keep this, so nothing is said when it is not kept.
    virtual void setExtensionHidden(int file) = 0;
};
