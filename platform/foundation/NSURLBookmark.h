#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <optional>
#include <string>
#include <string_view>

/// A bookmark says where a file is in a way that outlives its renaming. Its bytes are a binary property list
/// with the path and with the device and inode numbers; whoever makes one need not be the process that
/// resolves it.

/// The bookmark of an existing file or folder; none with the reason in `error` when it cannot be looked up.
[[nodiscard]] std::optional<std::string> bookmarkDataForURL(const NSURL& url, NSError* error = nullptr);

/// Where the bookmark's file is now: at its path if it is still that file, else under another name in the
/// same folder (10,000 entries are looked at), else whatever is at the path now. None with the reason in
/// `error` when there is nothing, or the bytes are no bookmark.
[[nodiscard]] std::optional<NSURL> URLByResolvingBookmarkData(std::string_view bookmarkData,
                                                              NSError* error = nullptr);
