#include "platform/search/WriterTurn.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <utility>

struct WriterTurn::Queue {
    std::mutex mutex;
    std::condition_variable freed;
    bool taken = false;
};

std::shared_ptr<WriterTurn::Queue> WriterTurn::queueFor(const std::string& path)
{
    static std::mutex mutex;
    static std::map<std::pair<dev_t, ino_t>, std::weak_ptr<Queue>> queues;

    struct stat status { };

    (void)::stat(path.c_str(),
                 &status); // A file that is gone has a queue of its own; SQLite will say what is wrong.
    const std::lock_guard lock(mutex);
    std::erase_if(queues, [](const auto& entry) { return entry.second.expired(); });
    auto& known = queues[{status.st_dev, status.st_ino}];
    auto queue = known.lock();
    if (!queue) {
        queue = std::make_shared<Queue>();
        known = queue;
    }
    return queue;
}

WriterTurn WriterTurn::take(const std::string& path, std::chrono::milliseconds timeout)
{
    auto queue = queueFor(path);
    WriterTurn turn;
    std::unique_lock lock(queue->mutex);
    if (queue->freed.wait_for(lock, timeout, [&] { return !queue->taken; })) {
        queue->taken = true;
        lock.unlock();
        turn.m_queue = std::move(queue);
    }
    return turn;
}

WriterTurn& WriterTurn::operator=(WriterTurn&& other) noexcept
{
    std::swap(m_queue, other.m_queue);
    other.giveBack();
    return *this;
}

WriterTurn::~WriterTurn()
{
    giveBack();
}

void WriterTurn::giveBack() noexcept
{
    if (!m_queue)
        return;
    {
        const std::lock_guard lock(m_queue->mutex);
        m_queue->taken = false;
    }
    m_queue->freed.notify_one();
    m_queue.reset();
}
