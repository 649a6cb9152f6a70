// How long a text takes to be laid out, and to be drawn on pages: of many paragraphs, in one long paragraph,
// in tables, and with many boxes in one line. Each in sizes that grow tenfold: what grows by more than that
// is not linear.

#include "attachments/CVLChecklistTextAttachment.h"
#include "bench/Growth.h"
#include "platform/layout/TextPages.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::u16string_view kWords = u"The path leads along the river, past the mill, and up to the wood. ";

NSAttributedString styled(std::u16string characters, const NSMutableParagraphStyle& style = {})
{
    return NSAttributedString(
        std::move(characters),
        {{std::u16string(NSFontAttributeName), NSFont::userFontOfSize(NSFont::kDefaultSize)},
         {std::u16string(NSParagraphStyleAttributeName), style.copy()}});
}

NSAttributedString paragraphs(std::size_t count)
{
    std::u16string characters;
    for (std::size_t i = 0; i < count; ++i)
        characters.append(kWords).append(u"\n");
    return styled(std::move(characters));
}

/// As many words, in one paragraph.
NSAttributedString oneParagraph(std::size_t count)
{
    std::u16string characters;
    for (std::size_t i = 0; i < count; ++i)
        characters += kWords;
    return styled(std::move(characters));
}

NSAttributedString tableOfRows(std::size_t count)
{
    const auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(2);
    NSMutableAttributedString text;
    for (std::size_t row = 0; row < count; ++row) {
        for (const NSInteger column : {0, 1}) {
            const auto cell
                = std::make_shared<NSTextTableBlock>(table, static_cast<NSInteger>(row), 1, column, 1);
            cell->setWidth({1, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border);
            NSMutableParagraphStyle style;
            style.setTextBlocks({cell});
            text.appendAttributedString(styled(u"a cell\n", style));
        }
    }
    return text.copy();
}

NSAttributedString lineOfBoxes(std::size_t count)
{
    NSMutableAttributedString text;
    for (std::size_t i = 0; i < count; ++i)
        text.appendAttributedString(CVLChecklistTextAttachment::init()->attributedString());
    return text.copy();
}

NSAttributedString itemsOfAList(std::size_t count)
{
    NSMutableAttributedString text;
    for (std::size_t i = 0; i < count; ++i) {
        text.appendAttributedString(CVLChecklistTextAttachment::init()->attributedString());
        text.appendAttributedString(NSAttributedString(u"item\n"));
    }
    return text.copy();
}

struct Case {
    std::string_view name;
    std::function<NSAttributedString(std::size_t count)> text;
};

void layOut(const NSAttributedString& text)
{
    const NSTextContainer container({483, 1e5}, &text);
    const NSLayoutManager manager(container);
}

void drawOnPages(const NSAttributedString& text)
{
    const TextPages pages(text, {});
    if (!pages.surface().PDFRepresentation(pages.drawings()))
        throw std::runtime_error("no document was made");
}

void measure(const Case& one)
{
    constexpr std::array<std::size_t, 3> kCounts{1'000, 10'000, 100'000};
    constexpr double kMicroseconds = 1e6;
    GrowthFigures laying{};
    GrowthFigures drawing{};
    for (std::size_t i = 0; i < kCounts.size(); ++i) {
        const auto text = one.text(kCounts.at(i));
        const auto each = kMicroseconds / static_cast<double>(kCounts.at(i));
        laying.at(i) = bestProcessorTime([&] { layOut(text); }, 1) * each;
        drawing.at(i) = bestProcessorTime([&] { drawOnPages(text); }, 1) * each;
    }
    printGrowthOfCost(std::string("lay out ").append(one.name), laying);
    printGrowthOfCost(std::string("lay out and draw ").append(one.name), drawing);
    (void)std::fflush(stdout); // Whoever watches wants to see each line.
}

} // namespace

int main()
{
    const std::vector<Case> cases = {
        {"paragraphs", paragraphs},       {"sentences of one paragraph", oneParagraph},
        {"rows of a table", tableOfRows}, {"items of a checklist", itemsOfAList},
        {"boxes in a line", lineOfBoxes},
    };
    printGrowthHeader("operation", "microseconds each", {"1,000", "10,000", "100,000"});
    try {
        for (const auto& one : cases)
            measure(one);
    } catch (const std::exception& exception) {
        fmt::print(stderr, "layout-benchmark: {}\n", exception.what());
        return 1;
    }
    return 0;
}
