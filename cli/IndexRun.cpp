#include "cli/IndexRun.h"

#include "cli/ErrorMessage.h"
#include "cli/ItemAttachments.h"
#include "cli/ItemQueue.h"
#include "platform/foundation/Unicode.h"
#include "platform/search/SKIndex.h"

#include <atomic>
#include <exception>
#include <thread>
#include <utility>

namespace {

constexpr std::size_t kQueueCapacity = 1024;

class QueueFiller final : public ItemVisitor {
public:
    QueueFiller(ItemQueue& queue, IndexReport& report)
        : m_queue(queue)
        , m_report(report)
    {
    }

    void visitItem(const std::string& path) override { m_queue.push(path); }

    void visitSkipped(const std::string& path, std::string_view why) override
    {
        m_report.addNote(path, "skipped: " + std::string(why));
    }

    void visitFailure(const std::string& path, const NSError& error) override
    {
        m_report.addFailure(path, error);
    }

private:
    ItemQueue& m_queue;
    IndexReport& m_report;
};

/// Lets the threads that wait for items end, however the walk ends.
class QueueCloser {
public:
    explicit QueueCloser(ItemQueue& queue)
        : m_queue(queue)
    {
    }

    QueueCloser(const QueueCloser&) = delete;
    QueueCloser& operator=(const QueueCloser&) = delete;

    ~QueueCloser() { m_queue.close(); }

private:
    ItemQueue& m_queue;
};

/// Sends items over one connection, on one thread.
class Sender {
public:
    Sender(const IndexRunOptions& options, IndexReport& report, std::atomic<bool>& isServiceLost,
           std::unique_ptr<IndexingClient> client)
        : m_options(options)
        , m_report(report)
        , m_isServiceLost(isServiceLost)
        , m_client(std::move(client))
    {
    }

    void sendAll(ItemQueue& queue);

private:
    void sendItem(const std::string& path);
    void openIndex();
    [[nodiscard]] bool isUnchanged(const NSURL& url) const;
    [[nodiscard]] AttachmentsInfo attachmentsInfo(const std::string& path, const NSURL& url);

    const IndexRunOptions& m_options;
    IndexReport& m_report;
    std::atomic<bool>& m_isServiceLost;
    std::unique_ptr<IndexingClient> m_client;
    std::unique_ptr<SKIndex> m_index;
};

void Sender::sendAll(ItemQueue& queue)
{
    openIndex();
    while (const auto path = queue.pop()) {
        try {
            if (m_isServiceLost)
                m_report.addNotSent(*path);
            else
                sendItem(*path);
        } catch (const std::exception& exception) {
            m_report.addFailure(*path, commandError(CommandError::NotPrepared, exception.what()));
        }
    }
}

// An index that is held open for reading makes the service's commits cheaper, and tells what is unchanged.
// One that cannot be opened here any more is the service's to report, for each item.
void Sender::openIndex()
{
    m_index = SKIndex::openWithURL(m_options.indexURL, SKIndexAccess::Read);
}

void Sender::sendItem(const std::string& path)
{
    const auto url = NSURL::fileURLWithPath(path);
    const auto& details = m_options.details;
    if (m_options.unchangedItems == UnchangedItems::Skip && details.isEmpty() && isUnchanged(url)) {
        m_report.addUnchanged();
        return;
    }
    NSError error;
    const auto reply = m_client->indexItemWithIdentifier(
        details.identifier.value_or(validUTF8(path)), details.recognizedText.value_or(std::string()), url,
        attachmentsInfo(path, url), m_options.indexURL, &error);
    if (!reply) {
        m_isServiceLost = true;
        m_report.addFailure(
            path,
            commandError(CommandError::ServiceLost, "the service did not answer: " + errorMessage(error)));
    } else if (reply->error) {
        m_report.addFailure(path, *reply->error);
    } else {
        m_report.addIndexed(path);
    }
}

bool Sender::isUnchanged(const NSURL& url) const
{
    const auto document = m_index ? SKDocument::createWithURL(url) : nullptr;
    if (!document)
        return false;
    const auto stamp = m_index->documentFileStamp(document);
    return stamp && stamp == SKFileStamp::stampOfFile(url);
}

AttachmentsInfo Sender::attachmentsInfo(const std::string& path, const NSURL& url)
{
    if (m_options.details.attachmentsInfo)
        return *m_options.details.attachmentsInfo;
    auto attachments = attachmentsOfItem(url);
    for (const auto& note : attachments.notes)
        m_report.addNote(path, note);
    return std::move(attachments.info);
}

} // namespace

void runIndexing(const std::vector<std::string>& paths, const IndexRunOptions& options,
                 std::vector<std::unique_ptr<IndexingClient>> clients, IndexReport& report)
{
    ItemQueue queue(kQueueCapacity);
    std::atomic<bool> isServiceLost = false;
    std::vector<std::jthread> threads;
    threads.reserve(clients.size());
    const QueueCloser closer(queue); // Goes before the threads, which wait for it.
    for (auto& client : clients) {
        threads.emplace_back(
            [&, sender = Sender(options, report, isServiceLost, std::move(client))]() mutable {
                sender.sendAll(queue);
            });
    }
    QueueFiller filler(queue, report);
    for (const auto& path : paths)
        walkItems(path, options.walk, filler);
}
