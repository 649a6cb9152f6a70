#include "platform/word/WordBlockWriting.h"

#include "platform/word/WordColors.h"
#include "platform/word/WordUnits.h"

#include <algorithm>
#include <array>

namespace {

struct Edge {
    NSRectEdge edge;
    std::string_view element;
};

/// In the order of the format's schema.
constexpr std::array<Edge, 4> kEdges{{{NSRectEdge::MinY, "w:top"},
                                      {NSRectEdge::MinX, "w:left"},
                                      {NSRectEdge::MaxY, "w:bottom"},
                                      {NSRectEdge::MaxX, "w:right"}}};

/// In points; 0 for a part of what is around the block.
double pointsOf(NSTextBlock::Value value)
{
    return value.type == NSTextBlockValueType::Absolute ? std::max(value.value, 0.0) : 0;
}

void writeBorder(WordXML& xml, const NSTextBlock& block, const Edge& edge, std::int64_t space)
{
    const auto width = pointsOf(block.widthForLayer(NSTextBlockLayer::Border, edge.edge));
    if (width <= 0)
        return;
    xml.raw("<");
    xml.raw(edge.element);
    xml.raw(" w:val=\"single\"");
    xml.attribute("w:sz", wordLineWidth(width));
    xml.attribute("w:space", space);
    const auto color = wordColorOf(block.borderColorForEdge(edge.edge)).value_or(WordColor{});
    xml.attribute("w:color", std::string_view(wordColorDigits(color)));
    xml.raw("/>");
}

void writeGroup(WordXML& xml, std::string_view element, const WordXML& content)
{
    if (content.isEmpty())
        return;
    xml.raw("<");
    xml.raw(element);
    xml.raw(">");
    xml.raw(content.bytes());
    xml.raw("</");
    xml.raw(element);
    xml.raw(">");
}

void writeBorders(WordXML& xml, std::string_view element, const NSTextBlock& block)
{
    WordXML borders;
    for (const auto& edge : kEdges)
        writeBorder(borders, block, edge, 0);
    writeGroup(xml, element, borders);
}

void writeGround(WordXML& xml, const NSTextBlock& block)
{
    const auto ground = wordColorOf(block.backgroundColor());
    if (ground && !ground->isAutomatic)
        writeWordShading(xml, *ground);
}

void writePadding(WordXML& xml, const NSTextBlock& block)
{
    WordXML padding;
    for (const auto& edge : kEdges) {
        padding.raw("<");
        padding.raw(edge.element);
        padding.attribute("w:w",
                          wordTwips(pointsOf(block.widthForLayer(NSTextBlockLayer::Padding, edge.edge))));
        padding.raw(" w:type=\"dxa\"/>");
    }
    writeGroup(xml, "w:tcMar", padding);
}

void writeWidth(WordXML& xml, std::string_view element, NSTextBlock::Value width)
{
    constexpr double kUnitsPerPercent = 50;
    constexpr std::int64_t kWhole = 5'000;
    const bool isPart = width.type == NSTextBlockValueType::Percentage;
    const bool isKnown = width.value > 0;
    xml.raw("<");
    xml.raw(element);
    xml.attribute("w:w",
                  !isKnown     ? std::int64_t{0}
                      : isPart ? wordUnits(width.value * kUnitsPerPercent, 1, kWhole)
                               : wordTwips(width.value));
    xml.attribute("w:type", std::string_view(!isKnown ? "auto" : isPart ? "pct" : "dxa"));
    xml.raw("/>");
}

void writeVerticalAlignment(WordXML& xml, NSTextBlockVerticalAlignment alignment)
{
    if (alignment == NSTextBlockVerticalAlignment::Middle)
        xml.property("w:vAlign", std::string_view("center"));
    else if (alignment == NSTextBlockVerticalAlignment::Bottom)
        xml.property("w:vAlign", std::string_view("bottom"));
}

} // namespace

void writeWordParagraphBlock(WordXML& xml, const NSTextBlock& block)
{
    constexpr std::int64_t kMostSpace = 31;
    WordXML borders;
    for (const auto& edge : kEdges) {
        const auto padding = pointsOf(block.widthForLayer(NSTextBlockLayer::Padding, edge.edge));
        writeBorder(borders, block, edge, wordUnits(padding, 0, kMostSpace));
    }
    writeGroup(xml, "w:pBdr", borders);
    writeGround(xml, block);
}

void writeWordTableProperties(WordXML& xml, const NSTextTable& table, bool hasWidths)
{
    xml.raw("<w:tblPr>");
    writeWidth(xml, "w:tblW", table.contentWidth());
    writeBorders(xml, "w:tblBorders", table);
    writeGround(xml, table);
    // Else columns without widths would shrink to their text.
    if (!hasWidths || table.layoutAlgorithm() == NSTextTableLayoutAlgorithm::Fixed)
        xml.raw("<w:tblLayout w:type=\"fixed\"/>");
    xml.raw("</w:tblPr>");
}

void writeWordCellProperties(WordXML& xml, const WordCellForm& form)
{
    static const NSTextBlock kPlain;
    const auto& block = form.cell ? static_cast<const NSTextBlock&>(*form.cell) : kPlain;
    xml.raw("<w:tcPr>");
    writeWidth(xml, "w:tcW", block.contentWidth());
    if (form.columnCount > 1)
        xml.property("w:gridSpan", static_cast<std::int64_t>(form.columnCount));
    if (form.isFromAbove)
        xml.property("w:vMerge");
    else if (form.reachesDown)
        xml.property("w:vMerge", std::string_view("restart"));
    if (form.cell) {
        writeBorders(xml, "w:tcBorders", block);
        writeGround(xml, block);
        writePadding(xml, block);
        writeVerticalAlignment(xml, block.verticalAlignment());
    }
    xml.raw("</w:tcPr>");
}
