#pragma once

#include "platform/foundation/NSError.h"

#include <map>
#include <string>

/// What travels in a reply: texts and errors by key. On the wire it is `a{sv}`; an error is itself an `a{sv}`
/// with the keys "domain" (s), "code" (i) and "userInfo" (a{sv}).
using NSXPCDictionary = std::map<std::string, NSErrorValue>;

/// Per name, a dictionary of texts: `a{sa{sv}}` on the wire.
using NSXPCStringDictionaries = std::map<std::string, std::map<std::string, std::string>>;

/// How deep errors within errors travel; what lies deeper is left out.
inline constexpr unsigned kMaximumErrorDepth = 8;
