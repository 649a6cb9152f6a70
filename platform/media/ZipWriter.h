#pragma once

#include "platform/foundation/NSError.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ZipEntry {
    /// ASCII, without a leading slash.
    std::string name;
    /// Must live until the file is made.
    std::string_view bytes;
    /// False for what is packed already, as pictures are: it is stored as it is.
    bool isDeflated = true;
};

/// A zip file with these members, at least one, in their order. The same members give the same bytes: each is
/// of the first day of the format's calendar, 1980-01-01. Packing is quick rather than thorough. No two may
/// have one name. None, with ENOMEM of NSPOSIXErrorDomain in `error`, when memory is short.
[[nodiscard]] std::optional<std::string> zipFileOf(const std::vector<ZipEntry>& entries,
                                                   NSError* error = nullptr);
