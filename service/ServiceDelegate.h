#pragma once

#include "platform/xpc/NSXPCListener.h"

/// Gives every connection an object of its own that carries out its requests.
class ServiceDelegate final : public NSXPCListenerDelegate {
public:
    [[nodiscard]] bool listener_shouldAcceptNewConnection(NSXPCListener& listener,
                                                          NSXPCConnection& connection) override;
};
