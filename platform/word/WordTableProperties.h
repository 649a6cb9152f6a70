#pragma once

#include "platform/media/XMLTextStream.h"
#include "platform/text/NSTextBlock.h"
#include "platform/word/WordTheme.h"

#include <array>
#include <optional>
#include <string>

struct WordBorder {
    /// 0 for none.
    double width = 0;
    WordColor color;

    friend bool operator==(const WordBorder&, const WordBorder&) = default;
};

/// Where a border of a table lies; the first four are NSRectEdge's numbers.
enum class WordBorderPlace {
    Left = 0,
    Top = 1,
    Right = 2,
    Bottom = 3,
    InsideVertical = 4,
    InsideHorizontal = 5
};

inline constexpr std::size_t kWordBorderPlaceCount = 6;

/// What a table, a table style or a cell says of its boxes. Lengths are in points.
struct WordTableProperties {
    std::array<std::optional<WordBorder>, kWordBorderPlaceCount> borders;
    /// By NSRectEdge.
    std::array<std::optional<double>, 4> padding;
    std::optional<WordColor> shading;
    std::optional<NSTextBlockVerticalAlignment> verticalAlignment;
    std::optional<NSTextBlock::Value> width;
    std::string style;

    // Of cells and rows only.
    int columnSpan = 1;
    int columnsBefore = 0;
    bool beginsVerticalMerge = false;
    bool continuesVerticalMerge = false;
    bool continuesHorizontalMerge = false;

    /// Takes over what `other` says of borders, padding, shading and alignment.
    void overrideWith(const WordTableProperties& other);
};

/// Reads the properties of tables, rows and cells. Its owner hands it every element.
class WordTablePropertyReader {
public:
    enum class Ended { Nothing, Table, Row, Cell };

    explicit WordTablePropertyReader(const WordTheme& theme)
        : m_theme(theme)
    {
    }

    /// False for an element outside of such properties.
    bool startElement(std::string_view localName, const XMLAttributes& attributes);
    [[nodiscard]] Ended endElement();

    [[nodiscard]] bool isReading() const { return m_depth != 0; }

    /// What ended last.
    [[nodiscard]] const WordTableProperties& properties() const { return m_properties; }

private:
    enum class Group { None, Borders, Padding, LeftOut };

    void readElement(std::string_view localName, const XMLAttributes& attributes);
    void readGrouped(std::string_view localName, const XMLAttributes& attributes);

    const WordTheme& m_theme;
    Ended m_kind = Ended::Nothing;
    Group m_group = Group::None;
    std::size_t m_groupDepth = 0;
    std::size_t m_depth = 0;
    WordTableProperties m_properties;
};
