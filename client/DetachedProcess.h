#pragma once

#include "platform/foundation/NSError.h"

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

/// Starts a program that goes on by itself: in a session of its own, no child of this process, with nothing
/// of this process open. It reads nothing, and what it writes to standard error goes to the journal under
/// `logName`, or nowhere where there is no journal.
///
/// The first of `arguments` is the program's absolute path. None with the reason in `error` when it cannot be
/// started.
[[nodiscard]] std::optional<pid_t> startDetachedProcess(const std::vector<std::string>& arguments,
                                                        const std::string& logName, NSError* error = nullptr);
