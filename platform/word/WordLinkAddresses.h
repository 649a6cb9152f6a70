#pragma once

#include "platform/foundation/NSAny.h"

#include <string>

/// The address that a link attribute, a URL or a text, is written with. Characters that no URL holds are
/// percent-encoded. Empty for what may harm who opens the document, or keep a word processor from opening it:
/// an address without a scheme, of another scheme than those of the web, of mail, of files to be fetched, of
/// telephones and of maps (scripts, data and local files among them), without a host where there must be one,
/// or longer than word processors take.
[[nodiscard]] std::string wordAddressOfLink(const NSAny& link);
