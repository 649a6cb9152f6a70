#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSError.h"

#include <chrono>
#include <string>

/// Locks a folder, or a file that is made for it (0600), against all others that do so, until the descriptor
/// goes. An invalid descriptor with the reason in `error` when it cannot be opened or another holds the lock
/// for longer than `patience`.
[[nodiscard]] FileDescriptor lockFolder(const std::string& path, std::chrono::milliseconds patience,
                                        NSError* error = nullptr);
[[nodiscard]] FileDescriptor lockFile(const std::string& path, std::chrono::milliseconds patience,
                                      NSError* error = nullptr);
