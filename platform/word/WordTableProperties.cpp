#include "platform/word/WordTableProperties.h"

#include <algorithm>

namespace {

constexpr double kEighthsPerPoint = 8;
constexpr double kMostBorderWidth = 12;
constexpr double kFiftiethsPerPercent = 50;
constexpr int kMostColumns = 512;

struct Place {
    std::string_view name;
    WordBorderPlace place;
};

constexpr std::array<Place, 8> kPlaces{{{"left", WordBorderPlace::Left},
                                        {"start", WordBorderPlace::Left},
                                        {"top", WordBorderPlace::Top},
                                        {"right", WordBorderPlace::Right},
                                        {"end", WordBorderPlace::Right},
                                        {"bottom", WordBorderPlace::Bottom},
                                        {"insideV", WordBorderPlace::InsideVertical},
                                        {"insideH", WordBorderPlace::InsideHorizontal}}};

std::optional<std::size_t> placeNamed(std::string_view name)
{
    const auto* const found
        = std::find_if(kPlaces.begin(), kPlaces.end(), [name](const Place& row) { return row.name == name; });
    return found == kPlaces.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found->place));
}

WordBorder borderOf(const XMLAttributes& attributes, const WordTheme& theme)
{
    const auto kind = attributes.value("val");
    if (kind == "nil" || kind == "none")
        return {};
    const auto width = wordLength(attributes.value("sz"), kEighthsPerPoint).value_or(0.5);
    return {std::clamp(width, 0.0, kMostBorderWidth),
            theme.color(attributes, WordColorUse::Line).value_or(WordColor{})};
}

std::optional<NSTextBlock::Value> widthOf(const XMLAttributes& attributes)
{
    const auto kind = attributes.value("type");
    const auto text = attributes.value("w");
    if (kind == "dxa" || kind.empty()) {
        const auto points = wordLength(text);
        return points && *points > 0 ? std::optional(NSTextBlock::Value{*points}) : std::nullopt;
    }
    const auto number = wordInteger(text.substr(0, text.find('%')));
    if (kind != "pct" || !number || *number <= 0)
        return std::nullopt;
    const auto percent = text.ends_with('%') ? double{1} * *number : *number / kFiftiethsPerPercent;
    return NSTextBlock::Value{std::min(percent, 100.0), NSTextBlockValueType::Percentage};
}

NSTextBlockVerticalAlignment verticalAlignmentNamed(std::string_view name)
{
    if (name == "center")
        return NSTextBlockVerticalAlignment::Middle;
    return name == "bottom" ? NSTextBlockVerticalAlignment::Bottom : NSTextBlockVerticalAlignment::Top;
}

template <typename Value> void replace(std::optional<Value>& value, const std::optional<Value>& other)
{
    if (other)
        value = other;
}

} // namespace

void WordTableProperties::overrideWith(const WordTableProperties& other)
{
    for (std::size_t place = 0; place < borders.size(); ++place)
        replace(borders[place], other.borders[place]);
    for (std::size_t edge = 0; edge < padding.size(); ++edge)
        replace(padding[edge], other.padding[edge]);
    replace(shading, other.shading);
    replace(verticalAlignment, other.verticalAlignment);
    replace(width, other.width);
}

bool WordTablePropertyReader::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (m_depth == 0) {
        if (localName == "tblPr")
            m_kind = Ended::Table;
        else if (localName == "trPr")
            m_kind = Ended::Row;
        else if (localName == "tcPr")
            m_kind = Ended::Cell;
        else
            return false;
        m_properties = {};
        m_depth = 1;
        return true;
    }
    ++m_depth;
    if (m_group == Group::None)
        readElement(localName, attributes);
    else
        readGrouped(localName, attributes);
    return true;
}

void WordTablePropertyReader::readElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (localName == "tblBorders" || localName == "tcBorders")
        m_group = Group::Borders;
    else if (localName == "tblCellMar" || localName == "tcMar")
        m_group = Group::Padding;
    else if (localName.ends_with("Change"))
        m_group = Group::LeftOut;
    if (m_group != Group::None) {
        m_groupDepth = m_depth;
        return;
    }
    const auto value = attributes.value("val");
    if (localName == "tblStyle")
        m_properties.style = value;
    else if (localName == "shd")
        m_properties.shading = m_theme.color(attributes, WordColorUse::Fill);
    else if (localName == "vAlign")
        m_properties.verticalAlignment = verticalAlignmentNamed(value);
    else if (localName == "tcW" || localName == "tblW")
        m_properties.width = widthOf(attributes);
    else if (localName == "gridSpan")
        m_properties.columnSpan = std::clamp(wordInteger(value).value_or(1), 1, kMostColumns);
    else if (localName == "gridBefore")
        m_properties.columnsBefore = std::clamp(wordInteger(value).value_or(0), 0, kMostColumns);
    else if (localName == "vMerge") {
        m_properties.beginsVerticalMerge = value == "restart";
        m_properties.continuesVerticalMerge = value != "restart";
    } else if (localName == "hMerge") {
        m_properties.continuesHorizontalMerge = value != "restart";
    }
}

void WordTablePropertyReader::readGrouped(std::string_view localName, const XMLAttributes& attributes)
{
    const auto place = placeNamed(localName);
    if (!place || m_depth != m_groupDepth + 1)
        return;
    if (m_group == Group::Borders)
        m_properties.borders.at(*place) = borderOf(attributes, m_theme);
    else if (m_group == Group::Padding && *place < m_properties.padding.size())
        m_properties.padding.at(*place) = wordLength(attributes.value("w"));
}

WordTablePropertyReader::Ended WordTablePropertyReader::endElement()
{
    if (m_group != Group::None && m_groupDepth == m_depth)
        m_group = Group::None;
    if (m_depth == 0 || --m_depth > 0)
        return Ended::Nothing;
    return m_kind;
}
