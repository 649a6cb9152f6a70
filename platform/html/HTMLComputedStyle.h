#pragma once

#include "platform/html/HTMLStyleRules.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSShadow.h"
#include "platform/text/NSTextBlock.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

enum class HTMLWhiteSpace { Collapsed, KeepingLines, Kept };

enum class HTMLDisplay { Inline, Block, None };

/// What an element's box is like; not handed down to the elements in it. Edges are in the order of
/// NSRectEdge.
struct HTMLBox {
    HTMLDisplay display = HTMLDisplay::Inline;
    std::array<double, 4> margin{};
    std::array<double, 4> padding{};
    std::array<double, 4> borderWidth{};
    std::array<NSColor::Ref, 4> borderColor{};
    NSColor::Ref background;
    NSTextBlock::Value width;
    NSTextBlock::Value height;
    NSTextBlockVerticalAlignment verticalAlignment = NSTextBlockVerticalAlignment::Top;
    bool collapsesBorders = false;

    [[nodiscard]] bool hasBorder() const;
};

/// What an element looks like. All but the box goes down to the elements in it. Lengths are in points.
struct HTMLComputedStyle {
    std::u16string family;
    double fontSize = 12;
    double rootFontSize = 12;
    /// 100 to 900.
    int weight = 400;
    bool isItalic = false;
    NSColor::Ref color;
    NSColor::Ref textBackground;
    NSShadow::Ref shadow;
    bool isUnderlined = false;
    bool isStruck = false;
    /// The number of the line's style, beside whether there is one.
    std::int64_t lineStyle = 1;
    NSColor::Ref lineColor;
    std::int64_t superscript = 0;
    double baselineOffset = 0;
    double kern = 0;
    NSTextAlignment alignment = NSTextAlignment::Natural;
    NSWritingDirection direction = NSWritingDirection::Natural;
    double lineHeightMultiple = 0;
    double fixedLineHeight = 0;
    double lineSpacing = 0;
    double textIndent = 0;
    HTMLWhiteSpace whiteSpace = HTMLWhiteSpace::Collapsed;
    /// A marker format; none for the usual one of the list's element and depth.
    std::optional<std::u16string> listFormat;
    bool isHidden = false;
    HTMLBox box;

    /// A length of a style sheet in points, relative ones by the fonts of this style. None for what is none.
    [[nodiscard]] std::optional<double> length(std::string_view text) const;

    /// The style of an element in one of this style, by declarations from the weakest to the strongest.
    [[nodiscard]] HTMLComputedStyle styleWith(const std::vector<const CSSDeclarations*>& cascade) const;
};
