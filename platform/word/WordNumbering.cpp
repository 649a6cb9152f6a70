#include "platform/word/WordNumbering.h"

#include "platform/foundation/Unicode.h"
#include "platform/word/WordStyles.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostLists = 10'000;
constexpr std::size_t kMostMarkerBytes = 64;

struct Format {
    std::string_view name;
    WordNumberFormat format;
};

// What is counted in other scripts is counted in decimals here.
constexpr std::array<Format, 7> kFormats{{{"bullet", WordNumberFormat::Bullet},
                                          {"none", WordNumberFormat::None},
                                          {"decimalZero", WordNumberFormat::DecimalZero},
                                          {"lowerLetter", WordNumberFormat::LowerLetter},
                                          {"upperLetter", WordNumberFormat::UpperLetter},
                                          {"lowerRoman", WordNumberFormat::LowerRoman},
                                          {"upperRoman", WordNumberFormat::UpperRoman}}};

WordNumberFormat formatNamed(std::string_view name)
{
    const auto* const found = std::find_if(kFormats.begin(), kFormats.end(),
                                           [name](const Format& row) { return row.name == name; });
    return found == kFormats.end() ? WordNumberFormat::Decimal : found->format;
}

std::optional<std::size_t> levelOf(const XMLAttributes& attributes)
{
    const auto number = wordInteger(attributes.value("ilvl"));
    if (!number || *number < 0 || *number >= static_cast<int>(kWordListLevelCount))
        return std::nullopt;
    return static_cast<std::size_t>(*number);
}

} // namespace

const WordList* WordNumbering::list(int number) const
{
    const auto found = m_lists.find(number);
    return found == m_lists.end() || !m_abstractLists.contains(found->second.abstractIdentifier)
        ? nullptr
        : &found->second;
}

const WordListLevel& WordNumbering::level(const WordList& list, std::size_t level) const
{
    const auto overridden = list.levelOverrides.find(level);
    return overridden != list.levelOverrides.end() ? overridden->second
                                                   : m_abstractLists.at(list.abstractIdentifier).at(level);
}

void WordNumberingHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (m_level && m_properties.startElement(localName, attributes))
        return;
    if (localName == "abstractNum")
        beginAbstractList(attributes);
    else if (localName == "num")
        beginList(attributes);
    else if (localName == "lvl")
        beginLevel(attributes);
    else if (localName == "numStyleLink" && m_abstractList)
        m_styleLinks[m_abstractIdentifier] = attributes.value("val");
    else if (localName == "abstractNumId" && m_list)
        m_list->abstractIdentifier = wordInteger(attributes.value("val")).value_or(0);
    else if (localName == "lvlOverride")
        m_overriddenLevel = levelOf(attributes).value_or(kWordListLevelCount);
    else if (localName == "startOverride" && m_list && m_overriddenLevel < kWordListLevelCount)
        m_list->startOverrides.at(m_overriddenLevel) = wordInteger(attributes.value("val")).value_or(1);
    else if (m_level)
        readLevelElement(localName, attributes);
}

void WordNumberingHandler::beginAbstractList(const XMLAttributes& attributes)
{
    m_list = nullptr;
    m_abstractList = nullptr;
    m_abstractIdentifier = wordInteger(attributes.value("abstractNumId")).value_or(0);
    if (m_numbering.m_abstractLists.size() < kMostLists)
        m_abstractList = &m_numbering.m_abstractLists[m_abstractIdentifier];
}

void WordNumberingHandler::beginList(const XMLAttributes& attributes)
{
    m_abstractList = nullptr;
    m_list = nullptr;
    const auto number = wordInteger(attributes.value("numId"));
    if (number && *number != 0 && m_numbering.m_lists.size() < kMostLists)
        m_list = &m_numbering.m_lists[*number];
}

void WordNumberingHandler::beginLevel(const XMLAttributes& attributes)
{
    m_level = levelOf(attributes);
    m_current = {};
}

void WordNumberingHandler::readLevelElement(std::string_view localName, const XMLAttributes& attributes)
{
    const auto value = attributes.value("val");
    if (localName == "start")
        m_current.start = wordInteger(value).value_or(1);
    else if (localName == "numFmt")
        m_current.format = formatNamed(value);
    else if (localName == "lvlText")
        m_current.text = UTF16FromUTF8(prefixAtCharacterBorder(value, kMostMarkerBytes));
    else if (localName == "lvlRestart")
        m_current.restartsAfter = wordInteger(value).value_or(0) - 1;
    else if (localName == "isLgl")
        m_current.isLegal = isWordPropertyOn(attributes);
}

void WordNumberingHandler::endElement(std::string_view localName)
{
    if (m_properties.isReading()) {
        const auto ended = m_properties.endElement();
        if (ended == WordPropertyReader::Ended::Paragraph)
            m_current.paragraph = m_properties.paragraph();
        else if (ended == WordPropertyReader::Ended::Run)
            m_current.run = m_properties.run();
    } else if (localName == "lvl" && m_level) {
        endLevel();
    }
}

void WordNumberingHandler::endLevel()
{
    if (m_abstractList)
        m_abstractList->at(*m_level) = std::move(m_current);
    else if (m_list)
        m_list->levelOverrides[*m_level] = std::move(m_current);
    m_level.reset();
}

void WordNumberingHandler::resolve(const WordStyles& styles)
{
    for (const auto& [identifier, name] : m_styleLinks) {
        const auto* const style = styles.style(name);
        const auto* const list = style ? m_numbering.list(style->paragraph.listNumber.value_or(0)) : nullptr;
        if (list && list->abstractIdentifier != identifier)
            m_numbering.m_abstractLists[identifier]
                = m_numbering.m_abstractLists.at(list->abstractIdentifier);
    }
}
