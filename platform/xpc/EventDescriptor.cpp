#include "platform/xpc/EventDescriptor.h"

#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

EventDescriptor::EventDescriptor()
    : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (!m_descriptor.isValid())
        throw std::system_error(errno, std::generic_category(), "eventfd");
}

void EventDescriptor::raise() const noexcept
{
    const std::uint64_t one = 1;
    (void)!::write(m_descriptor.get(), &one, sizeof(one)); // It fails only when the flag is up as it is.
}

void EventDescriptor::lower() const noexcept
{
    std::uint64_t count = 0;
    (void)!::read(m_descriptor.get(), &count, sizeof(count)); // It fails only when the flag is down as it is.
}
