#include "platform/html/HTMLBlockBoxes.h"

namespace {

void setEdges(NSTextBlock& block, NSTextBlockLayer layer, const std::array<double, 4>& widths)
{
    for (const auto edge : kRectEdges)
        block.setWidth({widths.at(static_cast<std::size_t>(edge)), NSTextBlockValueType::Absolute}, layer,
                       edge);
}

} // namespace

void setBox(NSTextBlock& block, const HTMLBox& box)
{
    setEdges(block, NSTextBlockLayer::Margin, box.margin);
    setEdges(block, NSTextBlockLayer::Border, box.borderWidth);
    setEdges(block, NSTextBlockLayer::Padding, box.padding);
    for (const auto edge : kRectEdges) {
        const auto index = static_cast<std::size_t>(edge);
        if (box.borderWidth.at(index) > 0)
            block.setBorderColor(box.borderColor.at(index), edge);
    }
    block.setBackgroundColor(box.background);
    if (box.width.value > 0)
        block.setValue(box.width, NSTextBlockDimension::Width);
    if (box.height.value > 0)
        block.setValue(box.height, NSTextBlockDimension::Height);
    block.setVerticalAlignment(box.verticalAlignment);
}

void openBoxedBlock(HTMLOpenElement& element)
{
    const auto block = std::make_shared<NSTextBlock>();
    setBox(*block, element.style.box);
    element.context.blocks.push_back(block);
    element.context.leftIndent = 0;
    element.context.rightIndent = 0;
}

void indentBlock(HTMLOpenElement& element)
{
    const auto& box = element.style.box;
    element.context.leftIndent += box.margin[0] + box.padding[0];
    element.context.rightIndent += box.margin[2] + box.padding[2];
}
