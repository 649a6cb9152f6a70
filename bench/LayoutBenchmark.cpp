// How long a text takes to be laid out, and to be drawn on pages: of many paragraphs, in one long paragraph,
// in tables, and with many boxes in one line. Each in sizes that grow tenfold: what grows by more than that
// is not linear.

#include "attachments/CVLChecklistTextAttachment.h"
#include "platform/layout/TextPages.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>

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

double seconds(const std::function<void()>& run)
{
    const auto start = std::chrono::steady_clock::now();
    run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void measure(const char* name, std::size_t count, const NSAttributedString& text)
{
    const NSTextContainer container({483, 1e5}, &text);
    const auto laying = seconds([&] { const NSLayoutManager manager(container); });
    std::size_t pageCount = 0;
    const auto drawing = seconds([&] {
        const TextPages pages(text, {});
        pageCount = pages.count();
        if (!pages.surface().PDFRepresentation(pages.drawings()))
            throw std::runtime_error("no document was made");
    });
    const auto perSecond = static_cast<double>(count) / drawing;
    fmt::print("| {} | {} | {} | {:.3f} | {:.3f} | {:.0f} |\n", name, count, pageCount, laying, drawing,
               perSecond);
    (void)std::fflush(stdout); // Whoever watches wants to see each line.
}

} // namespace

int main()
{
    fmt::print("| text | count | pages | lay out s | lay out and draw s | a second |\n"
               "| --- | --- | --- | --- | --- | --- |\n");
    try {
        for (const std::size_t count : {1'000U, 10'000U, 100'000U})
            measure("paragraphs", count, paragraphs(count));
        for (const std::size_t count : {1'000U, 10'000U, 100'000U})
            measure("sentences of one paragraph", count, oneParagraph(count));
        for (const std::size_t count : {1'000U, 10'000U, 100'000U})
            measure("rows of a table", count, tableOfRows(count));
        for (const std::size_t count : {1'000U, 10'000U, 100'000U})
            measure("items of a checklist", count, itemsOfAList(count));
        for (const std::size_t count : {1'000U, 10'000U, 100'000U})
            measure("boxes in a line", count, lineOfBoxes(count));
    } catch (const std::exception& exception) {
        fmt::print(stderr, "layout-benchmark: {}\n", exception.what());
        return 1;
    }
    return 0;
}
