#pragma once

#include "platform/foundation/NSError.h"
#include "platform/xpc/ListeningSocket.h"
#include "platform/xpc/NSXPCConnection.h"

#include <chrono>
#include <cstddef>
#include <list>
#include <memory>
#include <optional>
#include <string>

class NSXPCListener;

/// Decides on new connections.
class NSXPCListenerDelegate {
public:
    virtual ~NSXPCListenerDelegate() = default;
    /// Gives `connection` its interface and object, resumes it and answers true; false closes it.
    [[nodiscard]] virtual bool listener_shouldAcceptNewConnection(NSXPCListener& listener,
                                                                  NSXPCConnection& connection)
        = 0;
};

struct NSXPCListenerOptions {
    /// Where to listen when systemd passes no socket.
    std::string socketPath;
    /// How long to stay without any connection; none means for ever.
    std::optional<std::chrono::milliseconds> idleTimeout;
    /// Further connections wait in the system's queue until one ends.
    std::size_t maximumConnectionCount = 1024;
    /// Requests carried out at once over all connections; 0 means twice the number of processors, but 4 at
    /// least.
    std::ptrdiff_t maximumRequestCount = 0;
    /// A descriptor that stops the listener when it becomes readable. Borrowed.
    int stopDescriptor = -1;
};

/// Accepts connections of the same user and hands them to its delegate.
class NSXPCListener {
public:
    /// Listens on the socket from systemd or at the path of `options`, but accepts nothing before `resume`.
    /// Null with the reason in `error` when that is not possible.
    [[nodiscard]] static std::unique_ptr<NSXPCListener> serviceListener(const NSXPCListenerOptions& options,
                                                                        NSError* error = nullptr);

    NSXPCListener(const NSXPCListener&) = delete;
    NSXPCListener& operator=(const NSXPCListener&) = delete;
    ~NSXPCListener();

    /// Borrowed; to be set before `resume`.
    void setDelegate(NSXPCListenerDelegate* delegate) { m_delegate = delegate; }

    /// Accepts connections until nobody has been connected for the idle time, the stop descriptor is readable
    /// or `invalidate` was called. Then lets every request in hand finish and be answered, and returns. Once
    /// only.
    void resume();

    /// Makes `resume` return. May be called from any thread.
    void invalidate() { m_stopRequest.raise(); }

private:
    NSXPCListener(NSXPCListenerOptions options, std::unique_ptr<ListeningSocket> socket);

    enum class Wake { Connection, Other, Idle, Stop };

    [[nodiscard]] Wake wait() const;
    /// False when no connection waits.
    [[nodiscard]] bool acceptConnection();
    void removeEndedConnections();
    void endConnections();
    [[nodiscard]] bool mayAccept() const;

    NSXPCListenerOptions m_options;
    std::unique_ptr<ListeningSocket> m_socket;
    EventDescriptor m_stopRequest;
    NSXPCConnectionContext m_context;
    NSXPCListenerDelegate* m_delegate = nullptr;
    std::list<NSXPCConnection> m_connections;
    bool m_isShortOfDescriptors = false;
};
