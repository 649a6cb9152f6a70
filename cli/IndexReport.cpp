#include "cli/IndexReport.h"

#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/JSONLines.h"

#include <fmt/format.h>

namespace {

constexpr std::chrono::milliseconds kProgressInterval{100};

std::string_view itemNoun(std::uint64_t count)
{
    return count == 1 ? "item" : "items";
}

} // namespace

IndexReport::IndexReport(ReportForm form)
    : m_form(form)
    , m_start(std::chrono::steady_clock::now())
    , m_lastProgress(m_start)
{
}

void IndexReport::addIndexed(const std::string& path)
{
    const std::scoped_lock lock(m_mutex);
    ++m_indexedCount;
    printItem(path, std::nullopt);
    updateProgress();
}

void IndexReport::addFailure(const std::string& path, const NSError& error)
{
    const std::scoped_lock lock(m_mutex);
    ++m_failedCount;
    printItem(path, error);
    printError(path, errorReason(error, path));
}

void IndexReport::addNotSent(const std::string& path)
{
    const std::scoped_lock lock(m_mutex);
    ++m_failedCount;
    ++m_notSentCount;
    printItem(path, commandError(CommandError::NotSent, "not sent: the service had gone away"));
}

void IndexReport::addUnchanged()
{
    const std::scoped_lock lock(m_mutex);
    ++m_unchangedCount;
    updateProgress();
}

void IndexReport::addNote(const std::string& path, std::string_view note)
{
    printError(path, note);
}

bool IndexReport::finish()
{
    const std::scoped_lock lock(m_mutex);
    showProgress({});
    if (m_notSentCount > 0)
        printError("indexing service",
                   fmt::format("it had gone away: {} {} not sent", m_notSentCount, itemNoun(m_notSentCount)));
    printNote(summary());
    return m_failedCount == 0;
}

void IndexReport::printItem(const std::string& path, const std::optional<NSError>& error)
{
    if (m_form == ReportForm::JSON)
        printLine(itemLine(path, error));
}

void IndexReport::updateProgress()
{
    const auto now = std::chrono::steady_clock::now();
    if (!isErrorTerminal() || (m_form == ReportForm::JSON && isOutputTerminal())
        || now - m_lastProgress < kProgressInterval)
        return;
    m_lastProgress = now;
    const auto count = m_indexedCount + m_failedCount + m_unchangedCount;
    auto line = fmt::format("{} {}, {:.0f} a second", count, itemNoun(count),
                            static_cast<double>(count) / seconds());
    if (m_failedCount > 0)
        line += fmt::format(", {} failed", m_failedCount);
    showProgress(line);
}

std::string IndexReport::summary() const
{
    auto line = fmt::format("indexed {} {} in {:.1f} s", m_indexedCount, itemNoun(m_indexedCount), seconds());
    if (m_unchangedCount > 0)
        line += fmt::format(", {} unchanged", m_unchangedCount);
    if (m_failedCount > 0)
        line += fmt::format(", {} failed", m_failedCount);
    return line;
}

double IndexReport::seconds() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
}
