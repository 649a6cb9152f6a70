#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

/// A shadow as RTF has it: lengths in twips, the opacity out of 255, a colour by number.
struct RTFShadow {
    bool isOn = false;
    std::int32_t x = 60;
    std::int32_t y = -60;
    std::int32_t blur = 0;
    std::int32_t opacity = 255;
    std::int32_t color = 0;

    friend bool operator==(const RTFShadow&, const RTFShadow&) = default;
};

/// How characters look, in RTF's own numbers: what the writer's words set and the reader's words change.
/// Fonts and colours are numbers of their tables; colour 0 is none.
struct RTFCharacterFormat {
    static constexpr std::int32_t kDefaultSize = 12'000;

    /// None before a document names one.
    std::optional<std::int32_t> font;
    /// Thousandths of a point.
    std::int32_t size = kDefaultSize;
    bool isBold = false;
    bool isItalic = false;
    std::int32_t color = 0;
    std::int32_t background = 0;
    /// The platform's mask.
    std::int32_t underline = 0;
    std::int32_t underlineColor = 0;
    std::int32_t strikethrough = 0;
    std::int32_t strikethroughColor = 0;
    /// Half points; up is positive.
    std::int32_t baseline = 0;
    std::int32_t superscript = 0;
    /// Twips; none is not the same as none set.
    std::optional<std::int32_t> kern;
    std::int32_t ligature = 1;
    RTFShadow shadow;
    /// Twentieths of a percent.
    std::int32_t strokeWidth = 0;
    std::int32_t strokeColor = 0;
    /// Both in thousandths, halved.
    std::int32_t expansion = 0;
    std::int32_t obliqueness = 0;
    bool isHighlighted = false;
    std::int32_t highlightScheme = 0;

    friend bool operator==(const RTFCharacterFormat&, const RTFCharacterFormat&) = default;
};

/// Expansion and obliqueness are written times this.
inline constexpr double kShapeUnits = 2000;
/// Stroke widths are written times this.
inline constexpr double kStrokeUnits = 20;
