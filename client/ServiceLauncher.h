#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSError.h"

#include <string>

/// Connects to the service at `socketPath` and starts it when nothing listens there. Where several do so at
/// the same time one service remains. The service belongs to a session of its own, outlives the caller, and
/// is no child of it.
/// @return an invalid descriptor with the reason in `error` when there is no service after ten seconds.
[[nodiscard]] FileDescriptor connectStartingService(const std::string& socketPath,
                                                    const std::string& servicePath, NSError* error = nullptr);

/// The service's program beside the running one, else on the search path; empty when it is in neither place.
[[nodiscard]] std::string findServiceProgram();
