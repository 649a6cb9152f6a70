#include "bench/Growth.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <limits>

namespace {

double best(const std::function<void()>& run, std::size_t repetitions, double (*now)())
{
    auto fastest = std::numeric_limits<double>::infinity();
    for (; repetitions > 0; --repetitions) {
        const auto start = now();
        run();
        fastest = std::min(fastest, now() - start);
    }
    return fastest;
}

void printRow(std::string_view name, const GrowthFigures& figures, double growth)
{
    fmt::print("| {} | {:.0f} | {:.0f} | {:.0f} | {:.2f} |\n", name, figures[0], figures[1], figures[2],
               growth);
}

} // namespace

double bestProcessorTime(const std::function<void()>& run, std::size_t repetitions)
{
    return best(run, repetitions, [] { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; });
}

double bestTime(const std::function<void()>& run, std::size_t repetitions)
{
    return best(run, repetitions, [] {
        const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
        return now.count();
    });
}

void printGrowthHeader(std::string_view operation, std::string_view unit,
                       const std::array<std::string_view, 3>& sizes)
{
    fmt::print("| {} | {} at {} | at {} | at {} | growth |\n| --- | --- | --- | --- | --- |\n", operation,
               unit, sizes[0], sizes[1], sizes[2]);
}

void printGrowthOfCost(std::string_view name, const GrowthFigures& costs)
{
    printRow(name, costs, costs[2] / costs[0]);
}

void printGrowthOfRate(std::string_view name, const GrowthFigures& rates)
{
    printRow(name, rates, rates[0] / rates[2]);
}
