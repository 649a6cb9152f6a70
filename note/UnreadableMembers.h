#pragma once

#include "note/NoteFinding.h"
#include "platform/foundation/NSURL.h"

#include <vector>

/// Why a package that cannot be read as a whole cannot: members that are pipes, sockets or devices, which are
/// not opened, and files larger than any package may be. Links are not followed. Empty when it is something
/// else, or there is no folder at the URL.
[[nodiscard]] std::vector<NoteFinding> unreadableMembers(const NSURL& url);
