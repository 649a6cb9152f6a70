#include "markdown/MarkdownListNumbers.h"

#include <algorithm>
#include <limits>

NSInteger MarkdownListNumbers::next(const NSParagraphStyle::TextLists& lists,
                                    std::optional<NSInteger> written)
{
    std::size_t common = 0;
    while (common < lists.size() && common < m_counts.size() && m_counts[common].list == lists[common])
        ++common;
    m_counts.resize(common);
    for (; common < lists.size(); ++common)
        m_counts.push_back({lists[common], lists[common]->startingItemNumber()});
    auto& count = m_counts.back();
    // A numeral of letters is not read, and a hexadecimal one would be read as another number.
    const bool isDecimal = count.list->markerFormat().find(NSTextListMarkerDecimal) != std::u16string::npos;
    if (isDecimal)
        count.next = written.value_or(count.next);
    const auto number = std::min(count.next, std::numeric_limits<NSInteger>::max() - 1);
    count.next = number + 1;
    return number;
}
