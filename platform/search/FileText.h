#pragma once

#include "platform/foundation/NSURL.h"

#include <optional>
#include <string>

/// The text with which the file at `url` is indexed: the fields of its description, a line each, and its
/// content. Read by the extractor for `mimeTypeHint`, else for the file's type. Empty, with one log line that
/// says why, for a file of unknown kind, or one whose content is damaged or locked. None when the file cannot
/// be read.
[[nodiscard]] std::optional<std::string> textOfFile(const NSURL& url,
                                                    const std::optional<std::string>& mimeTypeHint);
