// How the cost of Markdown grows: paragraphs with spans, nested lists and text of nothing but markers, from
// 1,000 lines to 100,000, read and written. Linear is a growth of 1.

#include "bench/Growth.h"
#include "markdown/MarkdownExport.h"
#include "markdown/MarkdownImport.h"

#include <fmt/format.h>

#include <array>
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

void printRows(std::string_view name, std::u16string_view line)
{
    GrowthFigures reading{};
    GrowthFigures writing{};
    for (std::size_t index = 0; index < kCounts.size(); ++index) {
        const auto count = kCounts.at(index);
        const auto markdown = repeated(line, count);
        const auto text = attributedStringWithMarkdown(markdown);
        const auto repetitions = 3 + 20'000 / count;
        const auto nanosecondsALine = 1e9 / static_cast<double>(count);
        reading.at(index) = nanosecondsALine
            * bestProcessorTime([&] { (void)attributedStringWithMarkdown(markdown); }, repetitions);
        writing.at(index) = nanosecondsALine
            * bestProcessorTime([&] { (void)markdownWithAttributedString(text); }, repetitions);
    }
    printGrowthOfCost(fmt::format("read {}", name), reading);
    printGrowthOfCost(fmt::format("write {}", name), writing);
}

} // namespace

int main()
{
    printGrowthHeader("operation", "ns a line", {"1,000", "10,000", "100,000"});
    printRows("paragraphs", u"Some **words** of a [line](https://a.example/) with `code`\n\n");
    printRows("list items", u"- one\n    - [ ] two\n");
    printRows("markers in one paragraph", u"*a **b [c _d\n");
    return 0;
}
