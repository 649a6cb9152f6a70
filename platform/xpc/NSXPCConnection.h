#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSObject.h"
#include "platform/xpc/BusHandles.h"
#include "platform/xpc/EventDescriptor.h"
#include "platform/xpc/ExportedObject.h"
#include "platform/xpc/NSXPCInterface.h"

#include <atomic>
#include <memory>
#include <optional>
#include <thread>

/// What a listener's connections have in common. Outlives them.
struct NSXPCConnectionContext {
    explicit NSXPCConnectionContext(std::ptrdiff_t requestsAtOnce)
        : slots(requestsAtOnce)
    {
    }

    RequestSlots slots;
    /// Raised once, to end all connections: each finishes the request in hand and answers it.
    EventDescriptor stop;
    std::atomic<bool> isStopping = false;
    /// Raised whenever a connection has ended.
    EventDescriptor ended;
};

/// The service's end of one connection. It delivers the requests one after another on a thread of its own,
/// from `resume` until the other end goes away, sends what is no message, or the listener stops.
class NSXPCConnection {
public:
    /// Takes over an accepted socket; `context` is borrowed.
    NSXPCConnection(FileDescriptor socket, NSXPCConnectionContext& context);
    NSXPCConnection(const NSXPCConnection&) = delete;
    NSXPCConnection& operator=(const NSXPCConnection&) = delete;
    /// Waits for the thread, and so for the request in hand: end the connection before.
    ~NSXPCConnection();

    void setExportedInterface(NSXPCInterface interface);
    /// The connection owns the object with whoever else does, until it is over.
    void setExportedObject(std::shared_ptr<NSObject> object);
    /// Starts delivering. Interface and object are to be set before. A connection that cannot be started ends
    /// at once, with a line in the log.
    void resume();

    /// True before `resume` and after the end; the destructor does not wait then.
    [[nodiscard]] bool isOver() const { return !m_isRunning; }

private:
    [[nodiscard]] int openBus();
    void run() noexcept;
    void deliverRequests();
    [[nodiscard]] bool waitForWork() const;

    FileDescriptor m_socket;
    NSXPCConnectionContext& m_context;
    std::optional<NSXPCInterface> m_interface;
    std::shared_ptr<NSObject> m_object;
    std::unique_ptr<ExportedObject> m_exported;
    BusHandle m_bus;
    std::atomic<bool> m_isRunning = false;
    std::thread m_thread;
};
