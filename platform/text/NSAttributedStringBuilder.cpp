#include "platform/text/NSAttributedStringBuilder.h"

#include "platform/text/AttributedText.h"

#include <utility>

NSAttributedStringBuilder::NSAttributedStringBuilder()
    : m_text(std::make_shared<AttributedText>())
{
}

NSAttributedStringBuilder::~NSAttributedStringBuilder() = default;

void NSAttributedStringBuilder::append(std::u16string_view characters, const SharedAttributes& attributes)
{
    m_text->replace({m_text->length(), 0}, characters, attributes);
}

NSUInteger NSAttributedStringBuilder::length() const
{
    return m_text->length();
}

NSAttributedString NSAttributedStringBuilder::finish()
{
    (void)m_text->string();
    NSAttributedString built;
    built.m_text = std::exchange(m_text, std::make_shared<AttributedText>());
    return built;
}
