#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/PackageOperations.h"

#include <string>

/// Writes a file wrapper to disk, all or nothing.
///
/// The new file or folder is built under a hidden name beside its place, every file and folder of it synced.
/// It takes its place by one rename; what stood there is exchanged with it, and removed once the folder of
/// both is synced. So whenever the process or the machine stops, the old contents or the new ones are there,
/// whole; what may stay behind is a hidden ".corvel-..." beside them.
///
/// What replaces a file or folder of its kind takes over its permissions, when it was made, and whether its
/// extension is hidden and it is a package, all before it takes its place; what the wrapper says of itself
/// goes first. Its owner may always read what was written, and nothing is written that changes a user.
/// Permissions that the file system cannot keep are logged, as are old contents that cannot be removed.
///
/// Nothing is written that NSFileWrapper would not read again for its limits: ELOOP where folders are too
/// deep, EFBIG for too many members or bytes.
///
/// Where the file system cannot exchange, a file still takes a file's place at once, but a folder's old
/// contents are moved aside first: for a moment both stand beside the place, whole, and none at it. There
/// too, when the place was free or a file took a file's place, and the folder then cannot be synced, the new
/// contents stay, with an error; in every other case an error means that the old contents are back.
class FileWrapperWriter {
public:
    explicit FileWrapperWriter(PackageOperations& operations)
        : m_operations(operations)
    {
    }

    /// As NSFileWrapper::writeToURL.
    [[nodiscard]] bool write(NSFileWrapper& fileWrapper, const NSURL& url, unsigned options, NSError* error);

private:
    /// Where a wrapper goes: a name in an open folder, and the hidden names used on the way.
    struct Place {
        int folder;
        std::string name;
        std::string building;
        std::string aside;
    };

    enum class Placed { No, New, Exchanged, MovedAside, Replaced };

    bool writeInPlace(const NSFileWrapper& fileWrapper, const Place& place);
    bool writeAtomically(const NSFileWrapper& fileWrapper, const Place& place);
    /// `predecessor` is the name in the folder of what is to be replaced, which is inherited from; empty for
    /// members, which are new.
    bool build(const NSFileWrapper& fileWrapper, int folder, const std::string& name,
               const std::string& predecessor = {});
    bool buildFile(const NSFileWrapper& fileWrapper, int folder, const std::string& name,
                   const std::string& predecessor);
    bool buildFolder(const NSFileWrapper& fileWrapper, int folder, const std::string& name,
                     const std::string& predecessor);
    bool finish(const NSFileAttributes& attributes, int file);
    bool setPermissions(const NSFileAttributes& attributes, int file);
    Placed put(const Place& place);
    Placed putWithoutExchange(const Place& place);
    void takeBack(const Place& place, Placed placed);
    void removeOld(const Place& place, Placed placed);
    /// Removes what a failed write made; errno stays that of the failure.
    void discard(int folder, const std::string& name);
    static void updateNames(NSFileWrapper& fileWrapper, const std::u16string& name);

    PackageOperations& m_operations;
    bool m_keepsPermissions = true;
};
