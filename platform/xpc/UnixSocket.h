#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSError.h"

#include <string>

/// Connects to the stream socket at `path`. An invalid descriptor with the reason in `error` when nothing
/// listens there; an error of NSPOSIXErrorDomain with ENOENT or ECONNREFUSED says just that.
[[nodiscard]] FileDescriptor connectToSocket(const std::string& path, NSError* error = nullptr);

/// Where the service listens when it is told nothing else: $XDG_RUNTIME_DIR/corvel/indexing.sock. Where that
/// variable is not set, /run/user/UID stands for it if it exists, else a folder of the user's in the
/// temporary folder; both ends look at who the other is, so that nobody else can stand in there.
[[nodiscard]] std::string defaultSocketPath();
