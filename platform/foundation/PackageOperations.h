#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSAny.h"

#include <string>
#include <string_view>

/// How a name takes another's place. An exchange gives each what the other had.
enum class RenameKind { Replace, NoReplace, Exchange };

/// The file-system calls by which a package is written. Tests put others in their place, to see what is left
/// when one of them fails or is the last. Names are looked up in the folder of the descriptor, and links are
/// not followed but on the way to the folder in which all takes place. Each sets errno when it fails.
class PackageOperations {
public:
    PackageOperations() = default;
    PackageOperations(const PackageOperations&) = delete;
    PackageOperations& operator=(const PackageOperations&) = delete;
    virtual ~PackageOperations() = default;

    /// The calls of the system.
    [[nodiscard]] static PackageOperations& system();

    /// A folder by its path, in which each part may be a link.
    [[nodiscard]] virtual FileDescriptor openFolderAtPath(const std::string& path) = 0;
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
    /// A file, a link, or a folder with all it holds; as much of it as can be removed.
    [[nodiscard]] virtual bool remove(int folder, const std::string& name) = 0;

    /// Not every file system can keep this, so nothing is said when it is not kept.
    virtual void setExtensionHidden(int file) = 0;

    /// Gives the open file or folder what the one of its kind that has the name, if there is one, has beside
    /// its contents: permissions, when it was made, whether its extension is hidden, whether it is a package.
    /// Its owner may always read it. Nothing is said of what is not kept.
    virtual void inherit(int folder, const std::string& name, int file) = 0;
};
