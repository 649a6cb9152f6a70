#pragma once

#include "documents/Document.h"

#include <optional>
#include <string>

/// The kind that a command was given by name, of what it is to read or to write. Raises UsageError for a name
/// of none, or of one that can only be written, or read.
[[nodiscard]] DocumentKind documentKindToRead(const std::string& name);
[[nodiscard]] DocumentKind documentKindToWrite(const std::string& name);

/// The document that a command was given, "-" for standard input, and the name of its kind, if any: without
/// it a file is what its name and contents say, and standard input, or a pipe or device, plain text. None,
/// after a line on standard error, when it cannot be read. Raises UsageError for a name of no kind.
[[nodiscard]] std::optional<Document>
readDocumentOfArgument(const std::string& path, const std::optional<std::string>& kindName = std::nullopt);
