#pragma once

#include "platform/foundation/FileDescriptor.h"

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

/// A program that a test runs. Its two outputs are gathered in files, so that it never waits for the test.
class ChildProcess {
public:
    struct Outcome {
        /// The exit status; of a program that a signal ended, 128 and the signal.
        int status = 0;
        std::string output;
        std::string error;
    };

    /// Starts `arguments[0]` in `folder` with `input` on its standard input. `environment` (as "NAME=value")
    /// is added to the test's own.
    ChildProcess(const std::vector<std::string>& arguments, const std::string& folder,
                 std::string_view input = {}, const std::vector<std::string>& environment = {});
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    /// Kills the program if nobody waited for it.
    ~ChildProcess();

    [[nodiscard]] pid_t identifier() const { return m_identifier; }

    /// Everything it has written to standard output so far.
    [[nodiscard]] std::string outputSoFar() const;
    void sendSignal(int number) const;
    /// Waits until it ends; kills it after a minute, which shows as a status of 137.
    [[nodiscard]] Outcome wait();

private:
    FileDescriptor m_input;
    FileDescriptor m_output;
    FileDescriptor m_error;
    pid_t m_identifier = -1;
};
