// How the cost of pages grows: paragraphs, list items and table rows from 1,000 to 100,000, written and read.
// Linear is a growth of 1.

#include "bench/Growth.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <fmt/format.h>

#include <array>
#include <functional>
#include <stdexcept>
#include <string>

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

constexpr std::array<std::size_t, 3> kCounts{1'000, 10'000, 100'000};

void add(NSMutableAttributedString& text, std::u16string_view words, const NSParagraphStyle::Ref& style,
         std::size_t number)
{
    static const auto plain = NSFont::fontWithName(u"Helvetica", 13);
    static const auto bold = NSFont::fontWithName(u"Helvetica-Bold", 13);
    NSAttributes attributes{{std::u16string(NSFontAttributeName), plain},
                            {std::u16string(NSParagraphStyleAttributeName), style}};
    text.appendAttributedString(NSAttributedString(std::u16string(words), attributes));
    attributes.insert_or_assign(std::u16string(NSFontAttributeName), number % 3 == 0 ? bold : plain);
    text.appendAttributedString(NSAttributedString(u"some words of a line\n", std::move(attributes)));
}

NSAttributedString paragraphs(std::size_t count)
{
    NSMutableAttributedString text;
    const auto style = NSMutableParagraphStyle().copy();
    for (std::size_t index = 0; index < count; ++index)
        add(text, u"Paragraph with ", style, index);
    return text;
}

NSAttributedString listItems(std::size_t count)
{
    NSMutableAttributedString text;
    const auto outer = std::make_shared<const NSTextList>(NSTextListMarkerDisc);
    const auto inner = std::make_shared<const NSTextList>(NSTextListMarkerCircle);
    NSMutableParagraphStyle first;
    first.setTextLists({outer});
    NSMutableParagraphStyle second;
    second.setTextLists({outer, inner});
    const std::array styles{first.copy(), second.copy()};
    for (std::size_t index = 0; index < count; ++index)
        add(text, u"\t•\tItem with ", styles.at(index % 2), index);
    return text;
}

NSAttributedString tableCells(std::size_t count)
{
    NSMutableAttributedString text;
    const auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(4);
    for (std::size_t index = 0; index < count; ++index) {
        NSMutableParagraphStyle style;
        style.setTextBlocks({std::make_shared<NSTextTableBlock>(table, static_cast<NSInteger>(index / 4), 1,
                                                                static_cast<NSInteger>(index % 4), 1)});
        add(text, u"Cell with ", style.copy(), index);
    }
    return text;
}

NSData written(const NSAttributedString& text)
{
    auto page = Formats::HTMLFromRange(text, {0, text.length()});
    if (!page)
        throw std::logic_error("the text was not written");
    return std::move(*page);
}

/// Nanoseconds an item, for each of the counts.
void printRow(std::string_view name, const std::function<std::function<void()>(std::size_t)>& operationFor)
{
    GrowthFigures costs{};
    for (std::size_t index = 0; index < kCounts.size(); ++index) {
        const auto count = kCounts.at(index);
        costs.at(index)
            = bestProcessorTime(operationFor(count), 3 + 20'000 / count) * 1e9 / static_cast<double>(count);
    }
    printGrowthOfCost(name, costs);
}

void printRows(std::string_view name, NSAttributedString (*make)(std::size_t))
{
    printRow(fmt::format("write {}", name),
             [make](std::size_t count) { return [text = make(count)] { (void)written(text); }; });
    printRow(fmt::format("read {}", name), [make](std::size_t count) {
        return [page = written(make(count))] {
            if (!Formats::initWithHTML(page))
                throw std::logic_error("the page was not read");
        };
    });
}

} // namespace

int main()
{
    printGrowthHeader("operation", "ns an item", {"1,000", "10,000", "100,000"});
    printRows("paragraphs", paragraphs);
    printRows("list items", listItems);
    printRows("table cells", tableCells);
    return 0;
}
