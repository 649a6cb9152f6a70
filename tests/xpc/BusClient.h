#pragma once

#include "platform/xpc/BusHandles.h"
#include "platform/xpc/NSXPCDecoder.h"
#include "platform/xpc/NSXPCEncoder.h"

#include <functional>
#include <string>

/// A plain D-Bus client on a socket, for tests.
class BusClient {
public:
    struct Answer {
        /// Null after an error.
        BusMessage message;
        /// The D-Bus error's name; empty for an answer or when the connection ended.
        std::string errorName;
        /// 0, or the positive errno.
        int code = 0;
    };

    /// @throws std::runtime_error when nothing listens there.
    explicit BusClient(const std::string& socketPath);

    [[nodiscard]] Answer call(const char* path, const char* interface, const char* method,
                              const std::function<void(NSXPCEncoder&)>& arguments = {}) const;
    /// Sends and does not wait.
    void send(const char* path, const char* interface, const char* method,
              const std::function<void(NSXPCEncoder&)>& arguments) const;

private:
    BusHandle m_bus;
};
