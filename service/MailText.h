#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <optional>
#include <string>

/// The bytes of a message file, at most ContentLimits::wholeFileBytes of them. None with the reason in
/// `error`.
[[nodiscard]] std::optional<std::string> readMailMessage(const NSURL& url, NSError* error);

/// What a message is searched by: sender, recipients, subject and body, a line each. None with the reason in
/// `error` when the file cannot be read; any bytes are a message.
[[nodiscard]] std::optional<std::string> textOfMailMessage(const NSURL& url, NSError* error);
