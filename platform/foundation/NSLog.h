#pragma once

#include <fmt/format.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>

/// Writes one line to the system log: the journal when the process runs under systemd, else standard error.
/// Control characters in the line are escaped, so that one call is one line whatever it was given. Never
/// throws.
void NSLogLine(std::string_view line) noexcept;

/// Formats and logs one line. The text of items never goes here; file names and reasons may.
template <typename... Arguments> void NSLog(fmt::format_string<Arguments...> format, Arguments&&... arguments)
{
    NSLogLine(fmt::format(format, std::forward<Arguments>(arguments)...));
}

/// While it lives, log lines go to `function` (on the thread that logs) instead of the system log. For tests
/// and for programs that show the log themselves. One at a time; not for use while other threads start or
/// stop one.
class NSLogCapture {
public:
    explicit NSLogCapture(std::function<void(std::string_view)> function);
    NSLogCapture(const NSLogCapture&) = delete;
    NSLogCapture& operator=(const NSLogCapture&) = delete;
    ~NSLogCapture();
};
