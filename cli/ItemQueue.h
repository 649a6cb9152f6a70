#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

/// Hands the paths of items from the thread that finds them to those that send them. It holds a bounded
/// number: who finds faster than the others send waits.
class ItemQueue {
public:
    explicit ItemQueue(std::size_t capacity);

    /// Waits for room. Not for use after `close`.
    void push(std::string path);
    /// Waits for a path; none when the queue is closed and empty.
    [[nodiscard]] std::optional<std::string> pop();
    /// No more paths will come.
    void close();

private:
    std::mutex m_mutex;
    std::condition_variable m_hasRoom;
    std::condition_variable m_hasItem;
    std::deque<std::string> m_paths;
    std::size_t m_capacity;
    bool m_isClosed = false;
};
