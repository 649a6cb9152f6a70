// How the cost of Markdown grows: paragraphs with spans, nested lists and text of nothing but markers, from
// 1,000 lines to 100,000, read and written. Linear is a growth of 1.

#include "markdown/MarkdownExport.h"
#include "markdown/MarkdownImport.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr std::array<std::size_t, 3> kCounts{1'000, 10'000, 100'000};

std::u16string repeated(std::u16string_view text, std::size_t count)
{
    std::u16string result;
    for (std::size_t index = 0; index < count; ++index)
        result += text;
    return result;
}

/// Processor time, which other work on the machine does not lengthen, in nanoseconds.
double processorTime()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC * 1e9;
}

/// The best of several runs, in nanoseconds.
double timeOf(const std::function<void()>& operation, std::size_t count)
{
    auto best = std::numeric_limits<double>::max();
    for (std::size_t repetition = 0; repetition < 3 + 20'000 / count; ++repetition) {
        const auto start = processorTime();
        operation();
        best = std::min(best, processorTime() - start);
    }
    return best;
}

void printRow(std::string_view name, const std::array<double, kCounts.size()>& perLine)
{
    fmt::print("| {} | {:.0f} | {:.0f} | {:.0f} | {:.2f} |\n", name, perLine[0], perLine[1], perLine[2],
               perLine[2] / perLine[0]);
}

void printRows(std::string_view name, std::u16string_view line)
{
    std::array<double, kCounts.size()> reading{};
    std::array<double, kCounts.size()> writing{};
    for (std::size_t index = 0; index < kCounts.size(); ++index) {
        const auto count = kCounts.at(index);
        const auto markdown = repeated(line, count);
        const auto text = attributedStringWithMarkdown(markdown);
        reading.at(index) = timeOf([&] { (void)attributedStringWithMarkdown(markdown); }, count)
            / static_cast<double>(count);
        writing.at(index)
            = timeOf([&] { (void)markdownWithAttributedString(text); }, count) / static_cast<double>(count);
    }
    printRow(fmt::format("read {}", name), reading);
    printRow(fmt::format("write {}", name), writing);
}

} // namespace

int main()
{
    fmt::print("| operation | ns a line at {} | at {} | at {} | growth |\n| --- | --- | --- | --- | --- |\n",
               kCounts[0], kCounts[1], kCounts[2]);
    printRows("paragraphs", u"Some **words** of a [line](https://a.example/) with `code`\n\n");
    printRows("list items", u"- one\n    - [ ] two\n");
    printRows("markers in one paragraph", u"*a **b [c _d\n");
    return 0;
}
