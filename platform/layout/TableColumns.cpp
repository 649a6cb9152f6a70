#include "platform/layout/TableColumns.h"

#include "platform/layout/LayoutLimits.h"

#include <algorithm>
#include <numeric>

namespace {

std::vector<std::size_t> byNaturalWidth(const std::vector<TableColumn>& columns)
{
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].width)
            order.push_back(i);
    }
    std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
        return columns[one].natural < columns[other].natural;
    });
    return order;
}

/// The narrowest first, each with at most an equal part of what is left; what remains goes to all alike.
void shareOut(const std::vector<TableColumn>& columns, double rest, std::vector<double>& widths)
{
    const auto order = byNaturalWidth(columns);
    auto open = static_cast<double>(order.size());
    for (const auto i : order) {
        const auto equal = rest / open;
        widths[i] = columns[i].natural > 0 ? std::min(columns[i].natural, equal) : equal;
        rest -= widths[i];
        --open;
    }
    for (const auto i : order)
        widths[i] += std::max(rest, 0.0) / static_cast<double>(order.size());
}

} // namespace

std::vector<double> columnWidths(const std::vector<TableColumn>& columns, double tableWidth)
{
    std::vector<double> widths(columns.size());
    double told = 0;
    double openCount = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        widths[i] = columns[i].width.value_or(0);
        told += widths[i];
        openCount += columns[i].width ? 0 : 1;
    }
    shareOut(columns, std::max(tableWidth - told, openCount * kNarrowestLine), widths);
    const auto sum = std::accumulate(widths.begin(), widths.end(), 0.0);
    if (sum > tableWidth) {
        for (auto& width : widths)
            width *= tableWidth / sum;
    }
    return widths;
}
