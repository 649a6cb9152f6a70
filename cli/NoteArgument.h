#pragma once

#include "note/CVLNoteFile.h"
#include "platform/foundation/NSURL.h"

#include <memory>
#include <string>

/// Where the note is that a command was given; a link that is named is followed, unlike those that notes
/// hold.
[[nodiscard]] NSURL urlOfNoteArgument(const std::string& path);

/// The note that a command was given, recovered from its RTFD part if need be. Null, after a line on standard
/// error, when it cannot be read.
[[nodiscard]] std::unique_ptr<CVLNoteFile> readNoteOfArgument(const std::string& path);
