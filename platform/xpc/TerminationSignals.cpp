#include "platform/xpc/TerminationSignals.h"

#include <cerrno>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

TerminationSignals::TerminationSignals()
{
    sigset_t signals{};
    (void)::sigemptyset(&signals); // These three fail for signal numbers that do not exist only.
    (void)::sigaddset(&signals, SIGTERM);
    (void)::sigaddset(&signals, SIGINT);
    if (const int code = ::pthread_sigmask(SIG_BLOCK, &signals, &m_formerMask); code != 0)
        throw std::system_error(code, std::generic_category(), "pthread_sigmask");
    m_descriptor = FileDescriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!m_descriptor.isValid())
        throw std::system_error(errno, std::generic_category(), "signalfd");
}

TerminationSignals::~TerminationSignals()
{
    // A signal that was noticed is done with; it must not end the process when it is let through again.
    signalfd_siginfo noticed{};
    while (::read(m_descriptor.get(), &noticed, sizeof(noticed)) > 0) { }
    (void)::pthread_sigmask(SIG_SETMASK, &m_formerMask, nullptr); // The mask was valid when it was taken.
}
