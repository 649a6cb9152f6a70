#include "platform/media/DocumentProperties.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t kFieldLimit = 100;
constexpr std::size_t kValueByteLimit = 4096;

constexpr std::array<std::string_view, 5> kContainers{"coreProperties", "DocumentProperties", "meta",
                                                      "metadata", "package-metadata"};

struct Property {
    std::string_view element;
    std::string_view field;
};

constexpr std::array<Property, 12> kProperties{{
    {"title", "title"},
    {"Title", "title"},
    {"creator", "author"},
    {"initial-creator", "author"},
    {"Author", "author"},
    {"subject", "subject"},
    {"Subject", "subject"},
    {"keywords", "keywords"},
    {"keyword", "keywords"},
    {"Keywords", "keywords"},
    {"description", "description"},
    {"Description", "description"},
}};

/// Empty for an element that is no property.
std::string_view fieldOf(std::string_view element)
{
    const auto* const found = std::find_if(kProperties.begin(), kProperties.end(),
                                           [element](const Property& row) { return row.element == element; });
    return found == kProperties.end() ? std::string_view() : found->field;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kSpace = " \t\r\n";
    const auto first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

} // namespace

DocumentProperties::DocumentProperties(ContentSink& sink)
    : m_sink(sink)
{
}

void DocumentProperties::startElement(std::string_view localName, const XMLAttributes&)
{
    ++m_depth;
    const bool isContainer
        = std::find(kContainers.begin(), kContainers.end(), localName) != kContainers.end();
    if (m_containerDepth == 0 && isContainer) {
        m_containerDepth = m_depth;
    } else if (m_containerDepth != 0 && m_propertyDepth == 0 && !fieldOf(localName).empty()) {
        m_propertyDepth = m_depth;
        m_value.clear();
    }
}

void DocumentProperties::endElement(std::string_view localName)
{
    if (m_propertyDepth == m_depth) {
        m_propertyDepth = 0;
        const auto value = trimmed(m_value);
        if (!value.empty() && m_fieldCount++ < kFieldLimit)
            m_sink.addField(fieldOf(localName), value);
    } else if (m_containerDepth == m_depth) {
        m_containerDepth = 0;
    }
    --m_depth;
}

void DocumentProperties::text(std::string_view text)
{
    if (m_propertyDepth != 0 && m_value.size() < kValueByteLimit)
        m_value += text.substr(0, kValueByteLimit);
}
