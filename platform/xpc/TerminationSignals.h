#pragma once

#include "platform/foundation/FileDescriptor.h"

#include <signal.h>

/// While it lives, SIGTERM and SIGINT do not end the process but make a descriptor readable. Has to be made
/// before the threads that are not to be ended by them.
class TerminationSignals {
public:
    /// @throws std::system_error when the system refuses.
    TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

    [[nodiscard]] int descriptor() const { return m_descriptor.get(); }

private:
    sigset_t m_formerMask{};
    FileDescriptor m_descriptor;
};
