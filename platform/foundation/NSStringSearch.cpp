#include "platform/foundation/NSStringSearch.h"

#include <algorithm>

NSStringSearch::NSStringSearch(std::u16string_view text, std::u16string_view term,
                               NSStringCompareOptions options, std::string_view localeIdentifier)
    : m_text(text, StringFolder(options, localeIdentifier))
    , m_search(StringFolder(options, localeIdentifier).folded(term))
{
}

bool NSStringSearch::isWhole(std::size_t start) const
{
    return m_text.isCharacterBorder(start) && m_text.isCharacterBorder(start + m_search.length());
}

NSRange NSStringSearch::rangeAt(std::size_t start) const
{
    return m_text.sourceRange(start, start + m_search.length());
}

NSRange NSStringSearch::rangeFrom(NSUInteger location) const
{
    const auto start = m_search.find(m_text.units(), m_text.positionOf(location),
                                     [this](std::size_t candidate) { return isWhole(candidate); });
    return start == std::u16string_view::npos ? NSRange{NSNotFound, 0} : rangeAt(start);
}

NSRange NSStringSearch::lastRange() const
{
    NSRange last{NSNotFound, 0};
    (void)m_search.find(m_text.units(), 0, [&](std::size_t candidate) { // Runs on to the end: takes none.
        if (isWhole(candidate))
            last = rangeAt(candidate);
        return false;
    });
    return last;
}

NSRange rangeOfString(std::u16string_view text, std::u16string_view term, NSStringCompareOptions options,
                      std::optional<NSRange> range, std::string_view localeIdentifier)
{
    const auto offset = range ? std::min(range->location, text.size()) : 0;
    const auto part = text.substr(offset, range ? range->length : std::u16string_view::npos);
    const NSStringSearch search(part, term, options, localeIdentifier);
    auto found = (options & NSBackwardsSearch) != 0 ? search.lastRange() : search.rangeFrom(0);
    if (found.location != NSNotFound)
        found.location += offset;
    return found;
}
