#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string_view>

/// How the cost of an operation grows: the figures of three sizes, each ten times the one before.

using GrowthFigures = std::array<double, 3>;

/// What the fastest of so many runs takes, in seconds of processor time, which other work on the machine
/// does not lengthen. What the machine itself waits for is not in it.
[[nodiscard]] double bestProcessorTime(const std::function<void()>& run, std::size_t repetitions);

/// What the fastest of so many runs takes, in seconds by the clock.
[[nodiscard]] double bestTime(const std::function<void()>& run, std::size_t repetitions);

/// The first two lines of a table of such rows; `unit` says what the figures are, "ns a line".
void printGrowthHeader(std::string_view operation, std::string_view unit,
                       const std::array<std::string_view, 3>& sizes);

/// A row of whole figures, and how much they grew from the first to the last.
void printGrowthOfCost(std::string_view name, const GrowthFigures& costs);
/// The same of rates, which fall as the cost grows.
void printGrowthOfRate(std::string_view name, const GrowthFigures& rates);
