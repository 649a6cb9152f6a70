#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <string>
#include <string_view>

/// File-system operations by URL. All of them may be used from any thread.
class NSFileManager {
public:
    /// $TMPDIR, else /tmp.
    [[nodiscard]] static NSURL temporaryDirectory();

    /// Makes a folder that only its owner may enter. With `withIntermediateDirectories` missing parents are
    /// made too and an existing folder is no failure.
    [[nodiscard]] static bool createDirectoryAtURL(const NSURL& url, bool withIntermediateDirectories,
                                                   NSError* error = nullptr);

    /// Removes a file, a link (not what it points at) or a folder with all it holds.
    [[nodiscard]] static bool removeItemAtURL(const NSURL& url, NSError* error = nullptr);

    /// How a file is called in front of people: its path's last component, "/" for the root. File managers
    /// here neither hide extensions nor translate the names of folders.
    [[nodiscard]] static std::u16string displayNameAtPath(std::u16string_view path);

    /// The bytes under which the file system keeps a path. They are UTF-8, and end at a NUL as a C string
    /// does. File systems here keep names byte for byte, so that nothing is decomposed; unpaired surrogates,
    /// which have no bytes, become U+FFFD.
    [[nodiscard]] static std::string fileSystemRepresentation(std::u16string_view path);
    /// The string that `length` such bytes stand for; what is no UTF-8 becomes U+FFFD.
    [[nodiscard]] static std::u16string stringWithFileSystemRepresentation(const char* bytes,
                                                                           std::size_t length);
};

/// Writes `bytes` to a new file `name` in `folder`, readable by its owner only. Only the last component of
/// `name` is used, an existing file or link of that name is never followed or written over, and a name that
/// is empty, "." or
/// ".." is refused.
/// @return the URL of the written file; none with the reason in `error` when nothing was written.
[[nodiscard]] std::optional<NSURL> writeNewFile(std::string_view bytes, const NSURL& folder,
                                                std::string_view name, NSError* error = nullptr);
