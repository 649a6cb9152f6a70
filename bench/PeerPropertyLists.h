#pragma once

#include <string_view>

/// Whether libplist, the usual reader of property lists, was there when the benchmarks were built.
[[nodiscard]] bool hasPeerOfPropertyLists();

/// Reads a property list with it, and throws when it does not; there must be one.
void readPropertyListWithPeer(std::string_view bytes);
