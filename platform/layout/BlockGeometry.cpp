#include "platform/layout/BlockGeometry.h"

#include "platform/layout/LayoutLimits.h"

#include <algorithm>

namespace {

BlockEdges edges(const NSTextBlock& block, NSTextBlockLayer layer, double column)
{
    const auto width = [&](NSRectEdge edge) { return pointsOf(block.widthForLayer(layer, edge), column); };
    return {width(NSRectEdge::MinX), width(NSRectEdge::MinY), width(NSRectEdge::MaxX),
            width(NSRectEdge::MaxY)};
}

double heightOf(const NSTextBlock& block, NSTextBlockDimension dimension)
{
    const auto value = block.valueForDimension(dimension);
    return value.type == NSTextBlockValueType::Absolute ? pointsOf(value, 0) : 0;
}

} // namespace

double pointsOf(NSTextBlock::Value value, double column)
{
    const auto isPart = value.type == NSTextBlockValueType::Percentage;
    return boundedLength(isPart ? value.value / 100 * column : value.value);
}

BlockGeometry::BlockGeometry(const NSTextBlock& block, double columnWidth)
    : margin(edges(block, NSTextBlockLayer::Margin, columnWidth))
    , border(edges(block, NSTextBlockLayer::Border, columnWidth))
    , padding(edges(block, NSTextBlockLayer::Padding, columnWidth))
{
}

double contentWidth(const NSTextBlock& block, double columnWidth, double available)
{
    const auto length = [&](NSTextBlockDimension dimension) {
        return pointsOf(block.valueForDimension(dimension), columnWidth);
    };
    auto width = length(NSTextBlockDimension::Width);
    width = width > 0 ? width : available;
    if (const auto most = length(NSTextBlockDimension::MaximumWidth); most > 0)
        width = std::min(width, most);
    width = std::max(width, length(NSTextBlockDimension::MinimumWidth));
    return std::max(std::min(width, available), std::min(kNarrowestLine, columnWidth));
}

double contentHeight(const NSTextBlock& block, double needed)
{
    auto height = std::max(needed, heightOf(block, NSTextBlockDimension::Height));
    if (const auto most = heightOf(block, NSTextBlockDimension::MaximumHeight); most > 0)
        height = std::max(needed, std::min(height, most));
    return std::max(height, heightOf(block, NSTextBlockDimension::MinimumHeight));
}
