#include "platform/text/AttributedText.h"

#include <utility>

std::u16string AttributedText::substring(NSRange range) const
{
    std::u16string text(range.length, u'\0');
    for (NSUInteger index = 0; index < range.length; ++index)
        text[index] = m_characters[range.location + index];
    return text;
}

std::u16string_view AttributedText::string()
{
    const auto characters = m_characters.contiguous();
    return {characters.data(), characters.size()};
}

void AttributedText::replaceCharacters(NSRange range, std::u16string_view characters)
{
    m_characters.erase(range.location, range.length);
    m_characters.insert(range.location, std::span(characters.data(), characters.size()));
}

void AttributedText::replace(NSRange range, std::u16string_view characters,
                             const SharedAttributes& attributes)
{
    replaceCharacters(range, characters);
    m_runs.replace(range, characters.size(), attributes);
}

void AttributedText::replace(NSRange range, const AttributedText& other, NSRange otherRange)
{
    replaceCharacters(range, other.substring(otherRange));
    m_runs.replace(range, other.m_runs, otherRange);
}

void AttributedText::transformAttributes(NSRange range, const AttributeRuns::Change& change)
{
    m_runs.transform(range, change);
}

SharedAttributes AttributedText::shared(NSAttributes attributes)
{
    return m_cache.shared(std::move(attributes));
}
