#pragma once

#include "platform/foundation/NSError.h"

#include <string>
#include <string_view>

/// Whether the file that a command was told to write is standard output: "-" or "/dev/stdout".
[[nodiscard]] bool isStandardOutput(std::string_view path);

/// Writes to standard output what needs not be text. False with the reason in `error`.
[[nodiscard]] bool writeStandardOutput(std::string_view bytes, NSError* error);

/// Writes what a command made to the file that it was told to write. A file, or the one that a link leads to,
/// is replaced as a whole and keeps its permissions; until the new contents are on disk the old ones stay. A
/// device or a pipe is written to, and so is standard output. Nothing is written where there is a folder,
/// nor into a note or an RTFD package.
/// @return false with the reason in `error`.
[[nodiscard]] bool writeOutputFile(std::string_view bytes, const std::string& path, NSError* error);
