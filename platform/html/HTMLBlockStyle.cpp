#include "platform/html/HTMLBlockStyle.h"

#include "platform/html/CSSValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 4> kEdgeNames{"left", "top", "right", "bottom"};

bool isRightToLeft(const NSParagraphStyle& style)
{
    return style.baseWritingDirection() == NSWritingDirection::RightToLeft;
}

std::string_view nameOf(NSTextAlignment alignment)
{
    switch (alignment) {
    case NSTextAlignment::Left:
        return "left";
    case NSTextAlignment::Right:
        return "right";
    case NSTextAlignment::Center:
        return "center";
    case NSTextAlignment::Justified:
        return "justify";
    case NSTextAlignment::Natural:
        break;
    }
    return {};
}

void addIndents(const NSParagraphStyle& style, HTMLDeclarations& declarations)
{
    const std::string_view leading = isRightToLeft(style) ? "margin-right" : "margin-left";
    const std::string_view trailing = isRightToLeft(style) ? "margin-left" : "margin-right";
    if (style.headIndent() != 0)
        declarations.add(leading, cssPixels(style.headIndent()));
    if (style.firstLineHeadIndent() != style.headIndent())
        declarations.add("text-indent", cssPixels(style.firstLineHeadIndent() - style.headIndent()));
    if (style.tailIndent() < 0)
        declarations.add(trailing, cssPixels(-style.tailIndent()));
    else if (style.tailIndent() > style.headIndent())
        declarations.add("max-width", cssPixels(style.tailIndent() - style.headIndent()));
}

void addLineHeight(const NSParagraphStyle& style, HTMLDeclarations& declarations)
{
    const auto multiple = style.lineHeightMultiple() > 0 ? style.lineHeightMultiple() : 1;
    if (style.lineSpacing() > 0)
        declarations.add("line-height",
                         fmt::format("calc({}em + {})", cssNumberText(multiple * kNaturalLineHeight),
                                     cssPixels(style.lineSpacing())));
    else if (style.minimumLineHeight() > 0)
        declarations.add("line-height", cssPixels(style.minimumLineHeight()));
    else if (multiple != 1)
        declarations.add("line-height", cssNumberText(multiple * kNaturalLineHeight));
}

std::string lengthText(const NSTextBlock::Value& value)
{
    return value.type == NSTextBlockValueType::Percentage ? cssNumberText(value.value) + '%'
                                                          : cssPixels(value.value);
}

using LayerValues = std::array<NSTextBlock::Value, 4>;

LayerValues valuesOf(const NSTextBlock& block, NSTextBlockLayer layer)
{
    LayerValues values;
    for (const auto edge : kRectEdges)
        values.at(static_cast<std::size_t>(edge)) = block.widthForLayer(layer, edge);
    return values;
}

bool areEqual(const LayerValues& values)
{
    return std::all_of(values.begin(), values.end(),
                       [&values](const NSTextBlock::Value& value) { return value == values.front(); });
}

void addLayer(const NSTextBlock& block, NSTextBlockLayer layer, std::string_view property,
              HTMLDeclarations& declarations)
{
    const auto values = valuesOf(block, layer);
    if (areEqual(values)) {
        if (values.front().value != 0)
            declarations.add(property, lengthText(values.front()));
        return;
    }
    for (std::size_t edge = 0; edge < values.size(); ++edge) {
        if (values.at(edge).value != 0)
            declarations.add(fmt::format("{}-{}", property, kEdgeNames.at(edge)),
                             lengthText(values.at(edge)));
    }
}

void addBorder(std::string_view property, const NSTextBlock::Value& width, const NSColor::Ref& color,
               HTMLDeclarations& declarations)
{
    if (width.value <= 0)
        return;
    const auto line = cssPixels(width.value) + " solid";
    if (color)
        declarations.add(property, line + ' ', *color);
    else
        declarations.add(property, line);
}

bool haveEqualColors(const NSTextBlock& block)
{
    const auto& first = block.borderColorForEdge(NSRectEdge::MinX);
    return std::all_of(kRectEdges.begin(), kRectEdges.end(), [&](NSRectEdge edge) {
        const auto& color = block.borderColorForEdge(edge);
        return color == first || (color && first && color->isEqual(*first));
    });
}

void addBorders(const NSTextBlock& block, HTMLDeclarations& declarations)
{
    const auto widths = valuesOf(block, NSTextBlockLayer::Border);
    if (areEqual(widths) && haveEqualColors(block))
        return addBorder("border", widths.front(), block.borderColorForEdge(NSRectEdge::MinX), declarations);
    for (const auto edge : kRectEdges)
        addBorder(fmt::format("border-{}", kEdgeNames.at(static_cast<std::size_t>(edge))),
                  block.widthForLayer(NSTextBlockLayer::Border, edge), block.borderColorForEdge(edge),
                  declarations);
}

void addDimensions(const NSTextBlock& block, HTMLDeclarations& declarations)
{
    struct Dimension {
        NSTextBlockDimension dimension;
        std::string_view property;
    };

    static constexpr std::array kDimensions{
        Dimension{NSTextBlockDimension::Width, "width"},
        Dimension{NSTextBlockDimension::MinimumWidth, "min-width"},
        Dimension{NSTextBlockDimension::MaximumWidth, "max-width"},
        Dimension{NSTextBlockDimension::Height, "height"},
        Dimension{NSTextBlockDimension::MinimumHeight, "min-height"},
        Dimension{NSTextBlockDimension::MaximumHeight, "max-height"},
    };
    for (const auto& [dimension, property] : kDimensions) {
        const auto value = block.valueForDimension(dimension);
        if (value.value > 0)
            declarations.add(property, lengthText(value));
    }
}

void addVerticalAlignment(const NSTextBlock& block, HTMLDeclarations& declarations)
{
    constexpr std::array<std::string_view, 4> kNames{"top", "middle", "bottom", "baseline"};
    const auto alignment = block.verticalAlignment();
    if (alignment != NSTextBlockVerticalAlignment::Top)
        declarations.add("vertical-align", kNames.at(static_cast<std::size_t>(alignment)));
}

} // namespace

HTMLDeclarations paragraphDeclarations(const NSParagraphStyle& style)
{
    HTMLDeclarations declarations;
    if (style.paragraphSpacingBefore() > 0)
        declarations.add("margin-top", cssPixels(style.paragraphSpacingBefore()));
    if (style.paragraphSpacing() > 0)
        declarations.add("margin-bottom", cssPixels(style.paragraphSpacing()));
    if (style.textLists().empty())
        addIndents(style, declarations);
    if (const auto alignment = nameOf(style.alignment()); !alignment.empty())
        declarations.add("text-align", alignment);
    addLineHeight(style, declarations);
    if (style.hyphenationFactor() > 0)
        declarations.add("hyphens", "auto");
    if (style.lineBreakMode() == NSLineBreakMode::CharWrapping)
        declarations.add("word-break", "break-all");
    return declarations;
}

HTMLDeclarations blockDeclarations(const NSTextBlock& block)
{
    HTMLDeclarations declarations;
    addLayer(block, NSTextBlockLayer::Margin, "margin", declarations);
    addBorders(block, declarations);
    addLayer(block, NSTextBlockLayer::Padding, "padding", declarations);
    addDimensions(block, declarations);
    addVerticalAlignment(block, declarations);
    if (block.backgroundColor() && !isDefaultHTMLColor(*block.backgroundColor()))
        declarations.add("background", *block.backgroundColor());
    return declarations;
}

HTMLDeclarations tableDeclarations(const NSTextTable& table)
{
    auto declarations = blockDeclarations(table);
    if (table.collapsesBorders())
        declarations.add("border-collapse", "collapse");
    if (table.hidesEmptyCells())
        declarations.add("empty-cells", "hide");
    if (table.layoutAlgorithm() == NSTextTableLayoutAlgorithm::Fixed)
        declarations.add("table-layout", "fixed");
    return declarations;
}
