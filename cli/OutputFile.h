#pragma once

#include "platform/foundation/NSError.h"

#include <string>
#include <string_view>

/// Writes what a command made to the file that it was told to write. A file, or the one that a link leads to,
/// is replaced as a whole and keeps its permissions; until the new contents are on disk the old ones stay. A
/// device or a pipe is written to. Nothing is written where there is a folder,
/// nor into a note or an RTFD package.
/// @return false with the reason in `error`.
[[nodiscard]] bool writeOutputFile(std::string_view bytes, const std::string& path, NSError* error);
