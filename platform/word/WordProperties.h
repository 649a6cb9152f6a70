#pragma once

#include "platform/text/NSTextAlignment.h"
#include "platform/word/WordValues.h"

#include <optional>
#include <string>
#include <vector>

/// What a style, a list level or a piece of text says of its looks; absent is what says nothing. Lengths are
/// in points.

/// Of the characters of a run.
struct WordRunProperties {
    // These five are toggles: of two styles that both switch one on, the second switches it off again.
    std::optional<bool> isBold;
    std::optional<bool> isItalic;
    std::optional<bool> hasCapitals;
    std::optional<bool> isStruck;
    std::optional<bool> isDoubleStruck;

    /// As NSUnderlineStyleAttributeName has it.
    std::optional<int> underline;
    std::optional<WordColor> underlineColor;
    std::optional<WordColor> color;
    std::optional<WordColor> highlight;
    std::optional<WordColor> shading;
    std::optional<std::string> family;
    std::optional<std::string> eastAsianFamily;
    std::optional<std::string> complexFamily;
    std::optional<double> size;
    std::optional<double> complexSize;
    /// 1, 0 or -1.
    std::optional<int> superscript;
    std::optional<double> baselineOffset;
    std::optional<double> kern;
    /// Whether the text is of a complex script, right to left mostly, whatever its characters.
    std::optional<bool> isComplex;

    friend auto operator<=>(const WordRunProperties&, const WordRunProperties&) = default;

    /// What `other` says replaces what is said here.
    void overrideWith(const WordRunProperties& other);
    /// The same for a style on top of another one: toggles that both have on cancel each other.
    void combineWith(const WordRunProperties& style);
};

struct WordTabStop {
    double location = 0;
    NSTextAlignment alignment = NSTextAlignment::Left;
    /// Takes away what is at this place.
    bool isCleared = false;

    friend bool operator==(const WordTabStop&, const WordTabStop&) = default;
};

enum class WordLineRule { Multiple, Exactly, AtLeast };

/// Of a paragraph.
struct WordParagraphProperties {
    std::optional<NSTextAlignment> alignment;
    std::optional<bool> isRightToLeft;
    std::optional<double> leftIndent;
    std::optional<double> rightIndent;
    /// Relative to the left indent; negative for a hanging one.
    std::optional<double> firstLineIndent;
    std::optional<double> spacingBefore;
    std::optional<double> spacingAfter;
    /// Lines, for the rule Multiple; else points.
    std::optional<double> line;
    std::optional<WordLineRule> lineRule;
    /// From 0; 9 is text.
    std::optional<int> outlineLevel;
    std::optional<int> listLevel;
    /// 0 takes the paragraph out of its style's list.
    std::optional<int> listNumber;
    std::vector<WordTabStop> tabStops;

    void overrideWith(const WordParagraphProperties& other);
};
