#include "cli/ItemQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

TEST(ItemQueue, GivesPathsInOrderAndThenNone)
{
    ItemQueue queue(2);
    queue.push("a");
    queue.push("b");
    queue.close();
    EXPECT_EQ(queue.pop(), "a");
    EXPECT_EQ(queue.pop(), "b");
    EXPECT_EQ(queue.pop(), std::nullopt);
}

TEST(ItemQueue, HandsEveryPathToOneOfManyThreads)
{
    constexpr int kPaths = 10'000;
    constexpr int kThreads = 4;
    ItemQueue queue(3);
    std::atomic<int> sum = 0;
    {
        std::vector<std::jthread> threads;
        threads.reserve(kThreads);
        for (int thread = 0; thread < kThreads; ++thread) {
            threads.emplace_back([&] {
                while (const auto path = queue.pop())
                    sum += std::stoi(*path);
            });
        }
        for (int path = 1; path <= kPaths; ++path)
            queue.push(std::to_string(path));
        queue.close();
    }
    EXPECT_EQ(sum, kPaths * (kPaths + 1) / 2);
}

} // namespace
