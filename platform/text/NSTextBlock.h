#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/text/NSColor.h"

#include <array>
#include <cstddef>
#include <memory>

/// What a block's number is: points, or a part of the enclosing block in percent.
enum class NSTextBlockValueType { Absolute = 0, Percentage = 1 };

enum class NSTextBlockDimension {
    Width = 0,
    MinimumWidth = 1,
    MaximumWidth = 2,
    Height = 4,
    MinimumHeight = 5,
    MaximumHeight = 6
};

/// The layers around a block's content, from the inside to the outside.
enum class NSTextBlockLayer { Padding = -1, Border = 0, Margin = 1 };

enum class NSTextBlockVerticalAlignment { Top = 0, Middle = 1, Bottom = 2, Baseline = 3 };

enum class NSRectEdge { MinX = 0, MinY = 1, MaxX = 2, MaxY = 3 };

inline constexpr std::array<NSRectEdge, 4> kRectEdges{NSRectEdge::MinX, NSRectEdge::MinY, NSRectEdge::MaxX,
                                                      NSRectEdge::MaxY};

/// A box that paragraphs are set in, with a place of its own on the page. It is built once, then shared, and
/// is an identity: paragraphs are in one block only when their styles share one object.
class NSTextBlock : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSTextBlock>;

    /// A length with what it is measured in. 0 points where nothing was set.
    struct Value {
        double value = 0;
        NSTextBlockValueType type = NSTextBlockValueType::Absolute;

        friend bool operator==(const Value&, const Value&) = default;
    };

    void setValue(Value value, NSTextBlockDimension dimension);
    [[nodiscard]] Value valueForDimension(NSTextBlockDimension dimension) const;

    void setContentWidth(Value width) { setValue(width, NSTextBlockDimension::Width); }

    [[nodiscard]] Value contentWidth() const { return valueForDimension(NSTextBlockDimension::Width); }

    /// Of one edge, and of all four.
    void setWidth(Value width, NSTextBlockLayer layer, NSRectEdge edge);
    void setWidth(Value width, NSTextBlockLayer layer);
    [[nodiscard]] Value widthForLayer(NSTextBlockLayer layer, NSRectEdge edge) const;

    void setVerticalAlignment(NSTextBlockVerticalAlignment alignment) { m_verticalAlignment = alignment; }

    [[nodiscard]] NSTextBlockVerticalAlignment verticalAlignment() const { return m_verticalAlignment; }

    /// Null is no colour.
    void setBackgroundColor(NSColor::Ref color) { m_backgroundColor = std::move(color); }

    [[nodiscard]] const NSColor::Ref& backgroundColor() const { return m_backgroundColor; }

    void setBorderColor(NSColor::Ref color, NSRectEdge edge);
    void setBorderColor(const NSColor::Ref& color);
    [[nodiscard]] const NSColor::Ref& borderColorForEdge(NSRectEdge edge) const;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

protected:
    /// Takes the values that a coder's object has.
    void decodeFromCoder(NSCoder& coder);

private:
    static NSAny initWithCoder(NSCoder& coder);

    /// By the dimension's number; 3 is none.
    std::array<Value, 7> m_dimensions{};
    /// By layer, from the padding, and edge.
    std::array<std::array<Value, 4>, 3> m_widths{};
    NSTextBlockVerticalAlignment m_verticalAlignment = NSTextBlockVerticalAlignment::Top;
    NSColor::Ref m_backgroundColor;
    std::array<NSColor::Ref, 4> m_borderColors{};
};
