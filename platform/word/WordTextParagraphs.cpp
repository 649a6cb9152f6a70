#include "platform/word/WordTextParagraphs.h"

#include "platform/text/NSAttributeNames.h"

#include <algorithm>

namespace {

bool endsParagraph(char16_t unit)
{
    return unit == u'\n' || unit == u'\r' || unit == u'\u2029';
}

std::vector<NSTextTableBlock::Ref> cellsOf(const NSParagraphStyle& style)
{
    std::vector<NSTextTableBlock::Ref> cells;
    for (const auto& block : style.textBlocks()) {
        auto cell = std::dynamic_pointer_cast<const NSTextTableBlock>(block);
        if (cell && cell->table() && cells.size() < kMostWordTableDepth)
            cells.push_back(std::move(cell));
    }
    return cells;
}

} // namespace

WordTextParagraphs::WordTextParagraphs(const NSAttributedString& text, NSRange range)
    : m_text(text)
    , m_range(NSIntersectionRange(range, {0, text.length()}))
    , m_characters(text.string())
{
}

std::optional<WordTextParagraph> WordTextParagraphs::paragraphAt(NSUInteger location) const
{
    const auto end = NSMaxRange(m_range);
    if (location >= end)
        return std::nullopt;
    const auto rest = m_characters.substr(location, end - location);
    const auto* const found = std::find_if(rest.begin(), rest.end(), endsParagraph);
    const auto length = static_cast<NSUInteger>(found - rest.begin());
    WordTextParagraph paragraph;
    paragraph.content = {location, length};
    const auto isPair = rest.substr(length, 2) == u"\r\n";
    paragraph.end = std::min(location + length + (isPair ? 2 : 1), end);
    paragraph.style = m_text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
    if (!paragraph.style)
        paragraph.style = NSParagraphStyle::defaultParagraphStyle();
    if (!paragraph.style->textBlocks().empty())
        paragraph.cells = cellsOf(*paragraph.style);
    return paragraph;
}
