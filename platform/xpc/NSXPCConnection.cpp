#include "platform/xpc/NSXPCConnection.h"

#include "platform/foundation/NSLog.h"
#include "platform/xpc/MessageBusObject.h"

#include <systemd/sd-bus.h>
#include <systemd/sd-id128.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <poll.h>
#include <system_error>
#include <time.h>
#include <utility>

namespace {

// The bus says until when it can wait on the monotonic clock, in microseconds; all ones stand for "for ever".
int pollTimeout(sd_bus* bus)
{
    std::uint64_t deadline = 0;
    if (sd_bus_get_timeout(bus, &deadline) < 0 || deadline == UINT64_MAX)
        return -1;
    const auto now = std::chrono::duration_cast<std::chrono::microseconds>(
                         std::chrono::steady_clock::now().time_since_epoch())
                         .count();
    const auto rest = static_cast<std::int64_t>(std::min<std::uint64_t>(deadline, INT64_MAX)) - now;
    return static_cast<int>(std::clamp<std::int64_t>(rest / 1000 + 1, 0, 3'600'000));
}

// Who just looks whether somebody listens hangs up at once.
bool isHangUp(int code)
{
    return code == ECONNRESET || code == EPIPE || code == ENOTCONN;
}

} // namespace

NSXPCConnection::NSXPCConnection(FileDescriptor socket, NSXPCConnectionContext& context)
    : m_socket(std::move(socket))
    , m_context(context)
{
}

NSXPCConnection::~NSXPCConnection()
{
    if (m_thread.joinable())
        m_thread.join();
}

void NSXPCConnection::setExportedInterface(NSXPCInterface interface)
{
    m_interface = std::move(interface);
}

void NSXPCConnection::setExportedObject(std::shared_ptr<NSObject> object)
{
    m_object = std::move(object);
}

int NSXPCConnection::openBus()
{
    sd_bus* created = nullptr;
    if (const int result = sd_bus_new(&created); result < 0)
        return result;
    m_bus.reset(created);
    sd_id128_t identity{};
    if (const int result = sd_id128_randomize(&identity); result < 0)
        return result;
    if (const int result = sd_bus_set_server(created, 1, identity); result < 0)
        return result;
    if (const int result = sd_bus_set_anonymous(created, 0); result < 0)
        return result;
    if (const int result = sd_bus_negotiate_fds(created, 0); result < 0)
        return result;
    if (const int result = sd_bus_set_fd(created, m_socket.get(), m_socket.get()); result < 0)
        return result;
    (void)m_socket.release(); // From here on the bus closes it.
    if (const int result = addMessageBusObject(created); result < 0)
        return result;
    m_exported = std::make_unique<ExportedObject>(*m_interface, m_object, m_context.slots);
    if (const int result = m_exported->addToBus(created); result < 0)
        return result;
    return sd_bus_start(created);
}

void NSXPCConnection::resume()
{
    if (!m_interface || !m_object)
        return;
    m_isRunning = true;
    try {
        m_thread = std::thread(&NSXPCConnection::run, this);
    } catch (const std::system_error& error) {
        m_isRunning = false;
        m_socket = {};
        NSLog("Couldn't start a connection's thread: {}", error.what());
    }
}

void NSXPCConnection::run() noexcept
{
    try {
        const int result = openBus();
        if (result < 0 && !isHangUp(-result))
            NSLog("Couldn't open a connection: error {}", -result);
        if (result >= 0)
            deliverRequests();
    } catch (const std::exception& exception) {
        NSLog("A connection was ended by an exception: {}", exception.what());
    }
    m_bus.reset();
    m_exported.reset();
    m_object.reset();
    m_isRunning = false;
    m_context.ended.raise();
}

void NSXPCConnection::deliverRequests()
{
    while (!m_context.isStopping) {
        const int result = sd_bus_process(m_bus.get(), nullptr);
        if (result < 0 || (result == 0 && !waitForWork()))
            break;
    }
}

bool NSXPCConnection::waitForWork() const
{
    const int events = sd_bus_get_events(m_bus.get());
    const int descriptor = sd_bus_get_fd(m_bus.get());
    if (events < 0 || descriptor < 0)
        return false;
    pollfd waited[] = {{descriptor, static_cast<short>(events), 0}, {m_context.stop.descriptor(), POLLIN, 0}};
    const int result = ::poll(waited, std::size(waited), pollTimeout(m_bus.get()));
    return result >= 0 || errno == EINTR;
}
