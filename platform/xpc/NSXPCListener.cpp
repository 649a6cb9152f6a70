#include "platform/xpc/NSXPCListener.h"

#include "platform/foundation/NSLog.h"
#include "platform/xpc/PeerIdentity.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kShortageTime{100};
constexpr std::ptrdiff_t kMinimumRequestCount = 4;

std::ptrdiff_t requestsAtOnce(const NSXPCListenerOptions& options)
{
    if (options.maximumRequestCount > 0)
        return options.maximumRequestCount;
    const auto processors = static_cast<std::ptrdiff_t>(std::thread::hardware_concurrency());
    return std::max(2 * processors, kMinimumRequestCount);
}

bool isShortage(int code)
{
    return code == EMFILE || code == ENFILE || code == ENOBUFS || code == ENOMEM;
}

int asPollTimeout(std::optional<std::chrono::milliseconds> time)
{
    constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24 * 20);
    return time ? static_cast<int>(std::clamp(*time, std::chrono::milliseconds(0), kLongest).count()) : -1;
}

} // namespace

NSXPCListener::NSXPCListener(NSXPCListenerOptions options, std::unique_ptr<ListeningSocket> socket)
    : m_options(std::move(options))
    , m_socket(std::move(socket))
    , m_context(requestsAtOnce(m_options))
{
}

NSXPCListener::~NSXPCListener()
{
    endConnections();
}

std::unique_ptr<NSXPCListener> NSXPCListener::serviceListener(const NSXPCListenerOptions& options,
                                                              NSError* error)
{
    NSError reason;
    auto socket = ListeningSocket::passedBySystemd(&reason);
    if (!socket && reason.code() == 0)
        socket = ListeningSocket::listenAt(options.socketPath, &reason);
    if (!socket) {
        setError(error, reason);
        return nullptr;
    }
    try {
        return std::unique_ptr<NSXPCListener>(new NSXPCListener(options, std::move(socket)));
    } catch (const std::system_error& failure) {
        setError(error, NSError::errorWithErrno(failure.code().value(), "listener"));
        return nullptr;
    }
}

bool NSXPCListener::mayAccept() const
{
    return m_connections.size() < m_options.maximumConnectionCount && !m_isShortOfDescriptors;
}

NSXPCListener::Wake NSXPCListener::wait() const
{
    std::optional<std::chrono::milliseconds> timeout;
    if (m_isShortOfDescriptors)
        timeout = kShortageTime;
    else if (m_connections.empty())
        timeout = m_options.idleTimeout;
    std::array<pollfd, 4> waited{{{m_stopRequest.descriptor(), POLLIN, 0},
                                  {m_options.stopDescriptor, POLLIN, 0},
                                  {m_context.ended.descriptor(), POLLIN, 0},
                                  {mayAccept() ? m_socket->descriptor() : -1, POLLIN, 0}}};
    const int count = ::poll(waited.data(), waited.size(), asPollTimeout(timeout));
    if (count < 0)
        return errno == EINTR ? Wake::Other : Wake::Stop;
    if (count == 0)
        return m_isShortOfDescriptors ? Wake::Other : Wake::Idle;
    if (waited[0].revents != 0 || waited[1].revents != 0)
        return Wake::Stop;
    return waited[3].revents != 0 ? Wake::Connection : Wake::Other;
}

void NSXPCListener::resume()
{
    for (bool isOpen = true; isOpen || !m_connections.empty();) {
        const auto wake = wait();
        m_isShortOfDescriptors = false;
        removeEndedConnections();
        if (wake == Wake::Stop)
            break;
        if (wake == Wake::Connection)
            (void)acceptConnection(); // None waits any more when its peer gave up.
        if (wake != Wake::Idle)
            continue;
        // Who connected while the time ran out is served still; who comes later starts the service again.
        m_socket->removeFromFileSystem();
        isOpen = false;
        while (mayAccept() && acceptConnection()) { }
    }
    m_socket->removeFromFileSystem();
    endConnections();
}

bool NSXPCListener::acceptConnection()
{
    auto socket = m_socket->accept();
    if (!socket.isValid()) {
        m_isShortOfDescriptors = isShortage(errno);
        return false;
    }
    const auto peer = userOfPeer(socket.get());
    if (!isPeerAccepted(peer, ::geteuid())) {
        NSLog("Refused a connection of user {}", peer ? static_cast<long>(*peer) : -1L);
        return true;
    }
    auto& connection = m_connections.emplace_back(std::move(socket), m_context);
    if (!m_delegate || !m_delegate->listener_shouldAcceptNewConnection(*this, connection)
        || connection.isOver())
        m_connections.pop_back();
    return true;
}

void NSXPCListener::removeEndedConnections()
{
    m_context.ended.lower();
    m_connections.remove_if([](const NSXPCConnection& connection) { return connection.isOver(); });
}

void NSXPCListener::endConnections()
{
    m_context.isStopping = true;
    m_context.stop.raise();
    m_connections.clear();
}
