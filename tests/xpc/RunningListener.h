#pragma once

#include "platform/xpc/NSXPCListener.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

/// A listener that runs on a thread of its own until it goes.
class RunningListener : private NSXPCListenerDelegate {
public:
    using Setup = std::function<bool(NSXPCConnection&)>;

    RunningListener(const NSXPCListenerOptions& options, Setup setup)
        : m_setup(std::move(setup))
        , m_listener(NSXPCListener::serviceListener(options))
    {
        if (!m_listener)
            throw std::runtime_error("no listener at " + options.socketPath);
        m_listener->setDelegate(this);
        m_thread = std::thread([this] { m_listener->resume(); });
    }

    ~RunningListener() override
    {
        m_listener->invalidate();
        waitForEnd();
    }

    void invalidate() { m_listener->invalidate(); }

    void waitForEnd()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    [[nodiscard]] bool listener_shouldAcceptNewConnection(NSXPCListener& /*listener*/,
                                                          NSXPCConnection& connection) override
    {
        return m_setup(connection);
    }

    Setup m_setup;
    std::unique_ptr<NSXPCListener> m_listener;
    std::thread m_thread;
};
