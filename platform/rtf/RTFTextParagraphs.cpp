#include "platform/rtf/RTFTextParagraphs.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/text/NSAttributeNames.h"

#include <algorithm>

namespace {

bool endsParagraph(char16_t unit)
{
    return unit == u'\n' || unit == u'\r' || unit == u'\u2029';
}

RTFTextParagraph::Cells cellsOf(const NSParagraphStyle& style)
{
    RTFTextParagraph::Cells cells;
    for (const auto& block : style.textBlocks()) {
        auto cell = std::dynamic_pointer_cast<const NSTextTableBlock>(block);
        if (cell && cell->table() && cells.size() < kMostRTFTableDepth)
            cells.push_back(std::move(cell));
    }
    return cells;
}

} // namespace

RTFTextParagraphs::RTFTextParagraphs(const NSAttributedString& text, NSRange range)
    : m_text(text)
    , m_range(range)
    , m_characters(text.string())
{
}

std::optional<RTFTextParagraph> RTFTextParagraphs::paragraphAt(NSUInteger location) const
{
    const auto end = NSMaxRange(m_range);
    if (location >= end)
        return std::nullopt;
    RTFTextParagraph paragraph;
    const auto rest = m_characters.substr(location, end - location);
    const auto* const found = std::find_if(rest.begin(), rest.end(), endsParagraph);
    const auto contentEnd = location + static_cast<NSUInteger>(found - rest.begin());
    paragraph.content = {location, contentEnd - location};
    paragraph.isEnded = contentEnd < end;
    paragraph.end = paragraph.isEnded ? contentEnd + 1 : end;
    if (paragraph.end < end && m_characters.substr(contentEnd, 2) == u"\r\n")
        ++paragraph.end;
    paragraph.style = m_text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
    if (paragraph.style && !paragraph.style->textBlocks().empty())
        paragraph.cells = cellsOf(*paragraph.style);
    return paragraph;
}
