#include "platform/media/SharedStrings.h"

namespace {

constexpr std::size_t kStringLimit = std::size_t{4} << 20;

} // namespace

std::string_view SharedStrings::at(std::size_t index) const
{
    if (index >= m_ends.size())
        return {};
    const std::size_t start = index == 0 ? 0 : m_ends[index - 1];
    return std::string_view(m_text).substr(start, m_ends[index] - start);
}

SharedStringsHandler::SharedStringsHandler(SharedStrings& strings, ContentSink& sink)
    : m_strings(strings)
    , m_sink(sink)
{
}

void SharedStringsHandler::startElement(std::string_view localName, const XMLAttributes&)
{
    if (localName == "rPh")
        m_isInGuide = true;
    m_isInText = localName == "t" && !m_isInGuide;
}

void SharedStringsHandler::endElement(std::string_view localName)
{
    m_isInText = false;
    if (localName == "rPh")
        m_isInGuide = false;
    else if (localName == "si" && !isFull())
        m_strings.endString();
}

void SharedStringsHandler::text(std::string_view text)
{
    if (m_isInText && !isFull())
        m_strings.append(text);
}

bool SharedStringsHandler::isFull()
{
    const bool isFull
        = m_strings.count() >= kStringLimit || m_strings.byteCount() >= m_sink.limits().textBytes;
    if (isFull)
        m_sink.noteCut("the workbook's further strings were left out");
    return isFull;
}
