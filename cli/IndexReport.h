#pragma once

#include "platform/foundation/NSError.h"

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

enum class ReportForm {
    /// Failures as lines on standard error, and on a terminal a line that shows how far the run is.
    Human,
    /// Besides, a JSON line on standard output for each item.
    JSON,
};

/// What became of the items of a run, told as it happens. All functions may be used from any thread.
class IndexReport {
public:
    explicit IndexReport(ReportForm form);

    void addIndexed(const std::string& path);
    void addFailure(const std::string& path, const NSError& error);
    /// An item that could not be sent any more: a failure with no line of its own among those for people.
    void addNotSent(const std::string& path);
    /// An item that the index holds as it is.
    void addUnchanged();
    /// Tells something that is no failure.
    void addNote(const std::string& path, std::string_view note);

    /// Ends the report with a line that sums it up. @return whether nothing failed.
    [[nodiscard]] bool finish();

private:
    void printItem(const std::string& path, const std::optional<NSError>& error);
    void updateProgress();
    [[nodiscard]] std::string summary() const;
    [[nodiscard]] double seconds() const;

    const ReportForm m_form;
    const std::chrono::steady_clock::time_point m_start;
    std::mutex m_mutex;
    std::chrono::steady_clock::time_point m_lastProgress;
    std::uint64_t m_indexedCount = 0;
    std::uint64_t m_failedCount = 0;
    std::uint64_t m_notSentCount = 0;
    std::uint64_t m_unchangedCount = 0;
};
