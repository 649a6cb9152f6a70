#include "cli/ItemQueue.h"

#include <utility>

ItemQueue::ItemQueue(std::size_t capacity)
    : m_capacity(capacity)
{
}

void ItemQueue::push(std::string path)
{
    std::unique_lock lock(m_mutex);
    m_hasRoom.wait(lock, [this] { return m_paths.size() < m_capacity; });
    m_paths.push_back(std::move(path));
    m_hasItem.notify_one();
}

std::optional<std::string> ItemQueue::pop()
{
    std::unique_lock lock(m_mutex);
    m_hasItem.wait(lock, [this] { return m_isClosed || !m_paths.empty(); });
    if (m_paths.empty())
        return std::nullopt;
    auto path = std::move(m_paths.front());
    m_paths.pop_front();
    m_hasRoom.notify_one();
    return path;
}

void ItemQueue::close()
{
    const std::scoped_lock lock(m_mutex);
    m_isClosed = true;
    m_hasItem.notify_all();
}
