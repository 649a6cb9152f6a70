#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/xpc/NSXPCInterface.h"

#include <memory>
#include <semaphore>

struct sd_bus;

/// How many requests are carried out at once over all connections; further ones wait for their turn.
using RequestSlots = std::counting_semaphore<>;

/// An object on one connection's wire: turns messages into calls of the interface's methods, and exceptions
/// into D-Bus errors. Outlives the bus that it was added to.
class ExportedObject {
public:
    /// `slots` is borrowed and shared with the other connections.
    ExportedObject(NSXPCInterface interface, std::shared_ptr<NSObject> object, RequestSlots& slots);
    ExportedObject(const ExportedObject&) = delete;
    ExportedObject& operator=(const ExportedObject&) = delete;
    ~ExportedObject();

    /// @return 0 or more, else a negative errno.
    [[nodiscard]] int addToBus(sd_bus* bus);

private:
    class Dispatcher;
    std::unique_ptr<Dispatcher> m_dispatcher;
};
