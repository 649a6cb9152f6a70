#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <optional>

/// What a file system keeps of a file beside its contents. A value that is not there is unknown when read,
/// and left as it is when set.
///
/// What the file system has no place for is kept in the extended attributes user.corvel.extension-hidden,
/// user.corvel.creation-date (seconds since 2001, in decimal) and user.corvel.package.
struct NSURLResourceValues {
    /// Whether the name is shown without its extension.
    std::optional<bool> hasHiddenExtension;
    /// When the file was made: as it was set, else as the file system has it.
    std::optional<NSDate> creationDate;
    /// Whether the folder is shown as one document.
    std::optional<bool> isPackage;

    /// None when there is nothing at the URL that can be opened. Symbolic links are not followed.
    [[nodiscard]] static std::optional<NSURLResourceValues> resourceValuesOfURL(const NSURL& url,
                                                                                NSError* error = nullptr);

    /// @return false, with the reason in `error`, when the file cannot be opened, or one of the values cannot
    /// be stored, as where there are no extended attributes; the others are stored all the same.
    bool setForURL(const NSURL& url, NSError* error = nullptr) const;

    /// The same of an open file.
    [[nodiscard]] static NSURLResourceValues resourceValuesOfFile(int descriptor);
    /// 0, or the errno for which one of the values could not be stored.
    [[nodiscard]] int setForFile(int descriptor) const;
};
