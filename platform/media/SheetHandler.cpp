#include "platform/media/SheetHandler.h"

#include <fmt/format.h>

#include <charconv>
#include <cstddef>

namespace {

/// A cell holds 32,767 characters at most.
constexpr std::size_t kValueByteLimit = 131'072;

} // namespace

SheetHandler::SheetHandler(const SharedStrings& strings, ContentSink& sink)
    : m_strings(strings)
    , m_sink(sink)
{
}

void SheetHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (localName == "row")
        m_sink.breakLine();
    if (localName == "c") {
        m_type = attributes.value("t");
        m_value.clear();
    }
    if (localName == "rPh")
        m_isInGuide = true;
    m_isInValue = (localName == "v" || localName == "t") && !m_isInGuide;
}

void SheetHandler::endElement(std::string_view localName)
{
    m_isInValue = false;
    if (localName == "rPh")
        m_isInGuide = false;
    else if (localName == "c")
        putCell();
    else if (localName == "row")
        m_sink.breakLine();
}

void SheetHandler::text(std::string_view text)
{
    if (m_isInValue && m_value.size() < kValueByteLimit)
        m_value += text.substr(0, kValueByteLimit);
}

void SheetHandler::putCell()
{
    const auto text = cellText();
    if (text.empty())
        return;
    (void)m_sink.append(text); // The stream asks the sink itself whether to go on.
    (void)m_sink.append("\t");
}

std::string_view SheetHandler::cellText()
{
    const auto* const end = m_value.data() + m_value.size();
    if (m_type == "s") {
        std::size_t index = 0;
        const auto result = std::from_chars(m_value.data(), end, index);
        return result.ec == std::errc() ? m_strings.at(index) : std::string_view();
    }
    if (m_type == "b")
        return m_value == "1" ? "TRUE" : "FALSE";
    if (m_type == "e")
        return {};
    if (m_type.empty() || m_type == "n") {
        // Files hold binary fractions to their last digit: 0.10000000000000001 is shown as 0.1.
        double number = 0;
        const auto result = std::from_chars(m_value.data(), end, number);
        if (result.ec == std::errc() && result.ptr == end)
            m_value = fmt::format("{:.15g}", number);
    }
    return m_value;
}
