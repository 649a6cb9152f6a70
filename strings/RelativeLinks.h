#pragma once

#include "platform/foundation/NSURL.h"

#include <string>

namespace CVLMarkdown {

/// The link by which the item at `itemURL` points at `target`: the way from the item's folder to it, with
/// ".." for each folder to leave, percent-encoded byte for byte. Only the paths count. The name alone for a
/// target in the same folder, and empty for the folder itself.
[[nodiscard]] std::u16string relativeLinkFor(const NSURL& target, const NSURL& itemURL);

} // namespace CVLMarkdown
