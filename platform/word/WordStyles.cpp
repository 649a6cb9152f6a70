#include "platform/word/WordStyles.h"

#include <charconv>

namespace {

constexpr std::size_t kMostStyles = 10'000;
constexpr int kMostHeadingLevel = 9;

/// From the names that all languages of the format share: "heading 1" to "heading 9".
int headingLevelOfName(std::string_view name)
{
    constexpr std::string_view kPrefix = "heading ";
    std::string lower(name);
    for (auto& byte : lower)
        byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    int level = 0;
    const auto* const end = lower.data() + lower.size();
    if (!lower.starts_with(kPrefix))
        return 0;
    const auto result = std::from_chars(lower.data() + kPrefix.size(), end, level);
    const bool isLevel
        = result.ec == std::errc() && result.ptr == end && level >= 1 && level <= kMostHeadingLevel;
    return isLevel ? level : 0;
}

WordStyle onTopOf(const WordStyle& base, const WordStyle& own)
{
    auto style = base;
    style.paragraph.overrideWith(own.paragraph);
    style.run.overrideWith(own.run);
    style.table.overrideWith(own.table);
    if (own.headingLevel != 0)
        style.headingLevel = own.headingLevel;
    return style;
}

} // namespace

const WordStyle* WordStyles::style(std::string_view identifier) const
{
    const auto found = m_styles.find(identifier);
    return found == m_styles.end() ? nullptr : &found->second;
}

void WordStylesHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    ++m_depth;
    if (m_skippedDepth != 0)
        return;
    if (localName == "tblStylePr")
        m_skippedDepth = m_depth;
    else if (m_properties.isReading())
        (void)m_properties.startElement(localName, attributes); // True while it is reading.
    else if (!m_tableProperties.startElement(localName, attributes)
             && !m_properties.startElement(localName, attributes))
        readStyleElement(localName, attributes);
}

void WordStylesHandler::readStyleElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (localName == "style")
        beginStyle(attributes);
    else if (!m_isInStyle)
        return;
    else if (localName == "basedOn")
        m_current.base = attributes.value("val");
    else if (localName == "name")
        m_current.own.headingLevel = headingLevelOfName(attributes.value("val"));
}

void WordStylesHandler::beginStyle(const XMLAttributes& attributes)
{
    m_isInStyle = true;
    m_current = {};
    m_current.identifier = attributes.value("styleId");
    if (!isWordValueOn(attributes.value("default")))
        return;
    const auto type = attributes.value("type");
    if (type == "paragraph")
        m_styles.m_defaultParagraph = m_current.identifier;
    else if (type == "table")
        m_styles.m_defaultTable = m_current.identifier;
}

void WordStylesHandler::endElement(std::string_view localName)
{
    const auto depth = m_depth--;
    if (m_skippedDepth != 0) {
        m_skippedDepth = m_skippedDepth == depth ? 0 : m_skippedDepth;
        return;
    }
    if (m_properties.isReading())
        takeProperties(m_properties.endElement());
    else if (m_tableProperties.isReading()) {
        if (m_tableProperties.endElement() != WordTablePropertyReader::Ended::Nothing)
            target().table.overrideWith(m_tableProperties.properties());
    } else if (localName == "style" && m_isInStyle) {
        endStyle();
    }
}

void WordStylesHandler::takeProperties(WordPropertyReader::Ended ended)
{
    if (ended == WordPropertyReader::Ended::Paragraph)
        target().paragraph = m_properties.paragraph();
    else if (ended == WordPropertyReader::Ended::Run)
        target().run = m_properties.run();
}

void WordStylesHandler::endStyle()
{
    m_isInStyle = false;
    if (!m_current.identifier.empty() && m_definitions.size() < kMostStyles)
        m_definitions.push_back(std::move(m_current));
}

void WordStylesHandler::resolve()
{
    std::map<std::string_view, std::size_t> places;
    for (std::size_t index = 0; index < m_definitions.size(); ++index)
        places.emplace(m_definitions[index].identifier, index);
    std::vector<bool> isMet(m_definitions.size());
    for (std::size_t index = 0; index < m_definitions.size(); ++index) {
        // From the style up to one that is made already, or to the last one, then down again.
        std::vector<std::size_t> chain;
        auto place = places.find(m_definitions[index].identifier);
        while (place != places.end() && !isMet[place->second]) {
            isMet[place->second] = true;
            chain.push_back(place->second);
            place = places.find(m_definitions[place->second].base);
        }
        const auto* base = place == places.end() ? nullptr : m_styles.style(place->first);
        for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
            const auto& definition = m_definitions[*link];
            auto style = base ? onTopOf(*base, definition.own) : definition.own;
            base = &m_styles.m_styles.emplace(definition.identifier, std::move(style)).first->second;
        }
    }
}
