#include "platform/text/AttributedText.h"
#include "platform/text/NSAttributedString.h"

#include <algorithm>

namespace {

bool endsParagraph(char16_t unit)
{
    return unit == u'\n' || unit == u'\r' || unit == 0x2029;
}

bool endsLine(char16_t unit)
{
    return endsParagraph(unit) || unit == 0x85 || unit == 0x2028;
}

/// Whether `location` lies between the two units of one "\r\n".
bool isWithinLineEnd(const AttributedText& text, NSUInteger location)
{
    return location > 0 && location < text.length() && text.characterAt(location - 1) == u'\r'
        && text.characterAt(location) == u'\n';
}

NSUInteger pieceStart(const AttributedText& text, NSUInteger location, bool (*ends)(char16_t))
{
    auto start = std::min(location, text.length());
    while (start > 0 && (!ends(text.characterAt(start - 1)) || isWithinLineEnd(text, start)))
        --start;
    return start;
}

NSUInteger contentEnd(const AttributedText& text, NSUInteger start, bool (*ends)(char16_t))
{
    auto end = start;
    while (end < text.length() && !ends(text.characterAt(end)))
        ++end;
    return end;
}

NSUInteger behindLineEnd(const AttributedText& text, NSUInteger contentEnd)
{
    if (contentEnd == text.length())
        return contentEnd;
    return contentEnd + (isWithinLineEnd(text, contentEnd + 1) ? 2 : 1);
}

NSRange pieceRange(const AttributedText& text, NSUInteger location, bool (*ends)(char16_t))
{
    const auto start = pieceStart(text, location, ends);
    return {start, behindLineEnd(text, contentEnd(text, start, ends)) - start};
}

} // namespace

NSRange NSAttributedString::lineRangeAtIndex(NSUInteger location) const
{
    return pieceRange(*m_text, location, endsLine);
}

NSRange NSAttributedString::lineContentRangeAtIndex(NSUInteger location) const
{
    const auto start = pieceStart(*m_text, location, endsLine);
    return {start, contentEnd(*m_text, start, endsLine) - start};
}

NSRange NSAttributedString::paragraphRangeAtIndex(NSUInteger location) const
{
    return pieceRange(*m_text, location, endsParagraph);
}

NSRange NSAttributedString::paragraphRangeForRange(NSRange range) const
{
    const auto touched = clamped(range);
    const auto first = paragraphRangeAtIndex(touched.location);
    if (touched.length == 0)
        return first;
    return NSUnionRange(first, paragraphRangeAtIndex(NSMaxRange(touched) - 1));
}
