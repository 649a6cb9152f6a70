#pragma once

#include <optional>
#include <string>
#include <sys/types.h>

/// The service's real program, running on a socket of its own until it goes.
class ServiceProcess {
public:
    /// Starts it and waits until it listens. @throws std::runtime_error when it does not.
    explicit ServiceProcess(const std::string& socketPath);
    ServiceProcess(const ServiceProcess&) = delete;
    ServiceProcess& operator=(const ServiceProcess&) = delete;
    ~ServiceProcess();

    [[nodiscard]] pid_t process() const { return m_process; }

    void signal(int number) const;
    /// The exit status once it has ended; none when a signal ended it.
    [[nodiscard]] std::optional<int> waitForEnd();
    /// Waits, ten seconds at most, until it has the file open.
    [[nodiscard]] bool waitUntilOpen(const std::string& path) const;

    [[nodiscard]] static std::string programPath();

private:
    pid_t m_process = 0;
};

/// The process that listens at `socketPath`; 0 when none does.
[[nodiscard]] pid_t processBehindSocket(const std::string& socketPath);
