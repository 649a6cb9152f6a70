#include "platform/rtf/RTFTextAssembly.h"

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringBuilder.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {

/// Attributes together with paragraph styles, and styles together with cells: each pair is made once.
class Combinations {
public:
    explicit Combinations(const RTFTableReading& tables)
        : m_tables(tables)
    {
    }

    NSParagraphStyle::Ref styleIn(const NSParagraphStyle::Ref& style, std::int32_t cell)
    {
        if (cell == RTFTableReading::kNoCell)
            return style;
        auto& known = m_styles[{style.get(), cell}];
        if (!known) {
            auto inCell = (style ? *style : *NSParagraphStyle::defaultParagraphStyle()).mutableCopy();
            inCell.setTextBlocks(m_tables.blocksOf(cell));
            known = inCell.copy();
        }
        return known;
    }

    const SharedAttributes& attributesWith(const SharedAttributes& attributes,
                                           const NSParagraphStyle::Ref& style)
    {
        if (!style)
            return attributes;
        if (attributes == m_lastAttributes && style == m_lastStyle)
            return m_last;
        m_lastAttributes = attributes;
        m_lastStyle = style;
        auto& known = m_attributes[{attributes.get(), style.get()}];
        if (!known) {
            auto both = *attributes;
            both.insert_or_assign(std::u16string(NSParagraphStyleAttributeName), NSAny(style));
            known = std::make_shared<const NSAttributes>(std::move(both));
        }
        m_last = known;
        return m_last;
    }

private:
    const RTFTableReading& m_tables;
    std::map<std::pair<const NSParagraphStyle*, std::int32_t>, NSParagraphStyle::Ref> m_styles;
    std::map<std::pair<const NSAttributes*, const NSParagraphStyle*>, SharedAttributes> m_attributes;
    SharedAttributes m_lastAttributes;
    NSParagraphStyle::Ref m_lastStyle;
    SharedAttributes m_last;
};

} // namespace

void RTFTextAssembly::append(std::u16string_view characters, const SharedAttributes& attributes)
{
    if (characters.empty())
        return;
    m_characters += characters;
    if (!m_runs.empty() && m_runs.back().attributes == attributes)
        m_runs.back().end = m_characters.size();
    else
        m_runs.push_back({m_characters.size(), attributes});
}

void RTFTextAssembly::endParagraph(const NSParagraphStyle::Ref& style, std::int32_t cell)
{
    if (!hasOpenParagraph())
        return;
    if (m_markerEnd > m_paragraphStart && style && !style->textLists().empty())
        putTabsAroundMarker();
    m_paragraphStart = m_characters.size();
    const bool goesOn
        = !m_paragraphs.empty() && m_paragraphs.back().style == style && m_paragraphs.back().cell == cell;
    if (goesOn)
        m_paragraphs.back().end = m_characters.size();
    else
        m_paragraphs.push_back({m_characters.size(), style, cell});
}

void RTFTextAssembly::putTabsAroundMarker()
{
    const auto marker
        = std::u16string_view(m_characters).substr(m_paragraphStart, m_markerEnd - m_paragraphStart);
    const auto first = marker.find_first_not_of(u'\t');
    if (first == std::u16string_view::npos)
        return;
    const bool hasFirstTab = first > 0;
    if (!marker.ends_with(u'\t'))
        insertTab(m_markerEnd, m_markerEnd - 1);
    if (!hasFirstTab)
        insertTab(m_paragraphStart, m_paragraphStart);
}

void RTFTextAssembly::insertTab(std::size_t place, std::size_t model)
{
    m_characters.insert(place, 1, u'\t');
    for (auto run = m_runs.rbegin(); run != m_runs.rend() && run->end > model; ++run)
        ++run->end;
}

NSAttributedString RTFTextAssembly::finish(const RTFTableReading& tables)
{
    const std::u16string_view characters = m_characters;
    Combinations combinations(tables);
    NSAttributedStringBuilder builder;
    std::size_t start = 0;
    auto run = m_runs.begin();
    for (const auto& paragraph : m_paragraphs) {
        const auto style = combinations.styleIn(paragraph.style, paragraph.cell);
        while (start < paragraph.end) {
            const auto end = std::min(run->end, paragraph.end);
            builder.append(characters.substr(start, end - start),
                           combinations.attributesWith(run->attributes, style));
            start = end;
            if (run->end == end)
                ++run;
        }
    }
    return builder.finish();
}
