#include "platform/text/NSTextBlock.h"

#include "platform/text/CoderValues.h"

#include <string>
#include <utility>

namespace {

struct DimensionKey {
    NSTextBlockDimension dimension;
    std::string_view key;
};

constexpr std::array kDimensionKeys{
    DimensionKey{NSTextBlockDimension::Width, "NSWidth"},
    DimensionKey{NSTextBlockDimension::MinimumWidth, "NSMinWidth"},
    DimensionKey{NSTextBlockDimension::MaximumWidth, "NSMaxWidth"},
    DimensionKey{NSTextBlockDimension::Height, "NSHeight"},
    DimensionKey{NSTextBlockDimension::MinimumHeight, "NSMinHeight"},
    DimensionKey{NSTextBlockDimension::MaximumHeight, "NSMaxHeight"},
};

constexpr std::array<std::string_view, 3> kLayerKeys{"NSPadding", "NSBorder", "NSMargin"};
constexpr std::array<std::string_view, 4> kEdgeKeys{"MinX", "MinY", "MaxX", "MaxY"};

constexpr std::size_t indexOf(NSTextBlockLayer layer)
{
    constexpr auto kInnermost = static_cast<int>(NSTextBlockLayer::Padding);
    const int index = static_cast<int>(layer) - kInnermost;
    return static_cast<std::size_t>(index);
}

constexpr std::size_t indexOf(NSRectEdge edge)
{
    return static_cast<std::size_t>(edge);
}

constexpr std::size_t indexOf(NSTextBlockDimension dimension)
{
    return static_cast<std::size_t>(dimension);
}

std::string joined(std::string_view first, std::string_view second)
{
    return std::string(first).append(second);
}

void encodeValue(NSCoder& coder, NSTextBlock::Value value, const std::string& key)
{
    encodeRealUnlessZero(coder, value.value, key);
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(value.type), key + "Type");
}

NSTextBlock::Value decodeValue(NSCoder& coder, const std::string& key)
{
    const bool isPercentage = coder.decodeIntegerForKey(key + "Type") == 1;
    return {decodeReal(coder, key),
            isPercentage ? NSTextBlockValueType::Percentage : NSTextBlockValueType::Absolute};
}

NSTextBlockVerticalAlignment verticalAlignmentFromNumber(std::int64_t number)
{
    return number >= 0 && number <= 3 ? static_cast<NSTextBlockVerticalAlignment>(number)
                                      : NSTextBlockVerticalAlignment::Top;
}

void encodeColor(NSCoder& coder, const NSColor::Ref& color, std::string_view key)
{
    if (color)
        coder.encodeObject(NSAny(color), key);
}

NSColor::Ref decodeColor(NSCoder& coder, std::string_view key)
{
    return coder.decodeObjectOfClass(NSColor::classObject(), key).object<NSColor>();
}

} // namespace

void NSTextBlock::setValue(Value value, NSTextBlockDimension dimension)
{
    m_dimensions.at(indexOf(dimension)) = value;
}

NSTextBlock::Value NSTextBlock::valueForDimension(NSTextBlockDimension dimension) const
{
    return m_dimensions.at(indexOf(dimension));
}

void NSTextBlock::setWidth(Value width, NSTextBlockLayer layer, NSRectEdge edge)
{
    m_widths.at(indexOf(layer)).at(indexOf(edge)) = width;
}

void NSTextBlock::setWidth(Value width, NSTextBlockLayer layer)
{
    m_widths.at(indexOf(layer)).fill(width);
}

NSTextBlock::Value NSTextBlock::widthForLayer(NSTextBlockLayer layer, NSRectEdge edge) const
{
    return m_widths.at(indexOf(layer)).at(indexOf(edge));
}

void NSTextBlock::setBorderColor(NSColor::Ref color, NSRectEdge edge)
{
    m_borderColors.at(indexOf(edge)) = std::move(color);
}

void NSTextBlock::setBorderColor(const NSColor::Ref& color)
{
    m_borderColors.fill(color);
}

const NSColor::Ref& NSTextBlock::borderColorForEdge(NSRectEdge edge) const
{
    return m_borderColors.at(indexOf(edge));
}

const NSClass& NSTextBlock::classObject()
{
    static const NSClass object{"NSTextBlock", &NSObjectClass, &NSTextBlock::initWithCoder};
    return object;
}

const NSClass& NSTextBlock::classForCoder() const
{
    return classObject();
}

NSAny NSTextBlock::initWithCoder(NSCoder& coder)
{
    const auto block = std::make_shared<NSTextBlock>();
    block->decodeFromCoder(coder);
    return Ref(block);
}

void NSTextBlock::encodeWithCoder(NSCoder& coder) const
{
    for (const auto& [dimension, key] : kDimensionKeys)
        encodeValue(coder, valueForDimension(dimension), std::string(key));
    for (std::size_t edge = 0; edge < kEdgeKeys.size(); ++edge) {
        for (std::size_t layer = 0; layer < kLayerKeys.size(); ++layer)
            encodeValue(coder, m_widths.at(layer).at(edge), joined(kLayerKeys.at(layer), kEdgeKeys.at(edge)));
        encodeColor(coder, m_borderColors.at(edge), joined("NSBorderColor", kEdgeKeys.at(edge)));
    }
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(m_verticalAlignment), "NSVerticalAlignment");
    encodeColor(coder, m_backgroundColor, "NSBackgroundColor");
}

void NSTextBlock::decodeFromCoder(NSCoder& coder)
{
    for (const auto& [dimension, key] : kDimensionKeys)
        setValue(decodeValue(coder, std::string(key)), dimension);
    for (std::size_t edge = 0; edge < kEdgeKeys.size(); ++edge) {
        for (std::size_t layer = 0; layer < kLayerKeys.size(); ++layer)
            m_widths.at(layer).at(edge)
                = decodeValue(coder, joined(kLayerKeys.at(layer), kEdgeKeys.at(edge)));
        m_borderColors.at(edge) = decodeColor(coder, joined("NSBorderColor", kEdgeKeys.at(edge)));
    }
    m_verticalAlignment = verticalAlignmentFromNumber(coder.decodeIntegerForKey("NSVerticalAlignment"));
    m_backgroundColor = decodeColor(coder, "NSBackgroundColor");
}
