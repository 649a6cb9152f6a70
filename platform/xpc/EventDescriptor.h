#pragma once

#include "platform/foundation/FileDescriptor.h"

/// A flag between threads that can be waited for together with other descriptors.
class EventDescriptor {
public:
    /// @throws std::system_error when the process has no descriptor left.
    EventDescriptor();

    /// Readable while the flag is up.
    [[nodiscard]] int descriptor() const { return m_descriptor.get(); }

    /// Raises the flag. May be called from any thread, and from a signal handler.
    void raise() const noexcept;
    void lower() const noexcept;

private:
    FileDescriptor m_descriptor;
};
