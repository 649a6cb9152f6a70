#pragma once

#include <chrono>
#include <memory>
#include <string>

/// The turn to write one index among the connections of this process. SQLite lets writers take turns too,
/// across processes, but only by asking again and again; here the next one is woken. Given back when the
/// object goes.
class WriterTurn {
public:
    /// Waits for the turn at the index file `path`, however it is spelt. An empty result when it did not come
    /// in time.
    [[nodiscard]] static WriterTurn take(const std::string& path, std::chrono::milliseconds timeout);

    WriterTurn() = default;
    WriterTurn(WriterTurn&& other) noexcept = default;
    WriterTurn& operator=(WriterTurn&& other) noexcept;
    WriterTurn(const WriterTurn&) = delete;
    WriterTurn& operator=(const WriterTurn&) = delete;
    ~WriterTurn();

    [[nodiscard]] bool isTaken() const { return m_queue != nullptr; }

private:
    struct Queue;
    [[nodiscard]] static std::shared_ptr<Queue> queueFor(const std::string& path);
    void giveBack() noexcept;

    std::shared_ptr<Queue> m_queue;
};
