#pragma once

#include "platform/media/XMLTextStream.h"
#include "platform/word/WordValues.h"

#include <map>
#include <string>

/// What an element's colour is for, which its attributes are named by.
enum class WordColorUse { Text, Line, Fill };

/// The fonts and colours that a document gives names: what its styles mean by "minorHAnsi" and "accent1".
class WordTheme {
public:
    /// The family that a theme font stands for; empty when the theme has none.
    [[nodiscard]] std::string family(std::string_view themeFont) const;

    /// The colour that an element names by value or by theme. None when it names none.
    [[nodiscard]] std::optional<WordColor> color(const XMLAttributes& attributes, WordColorUse use) const;

private:
    friend class WordThemeHandler;

    /// "accent1", and so on.
    std::map<std::string, WordColor, std::less<>> m_colors;
    /// "majorFont/latin", and so on.
    std::map<std::string, std::string, std::less<>> m_families;
};

/// Reads a theme part. The theme must outlive the handler.
class WordThemeHandler final : public XMLHandler {
public:
    explicit WordThemeHandler(WordTheme& theme)
        : m_theme(theme)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;

private:
    WordTheme& m_theme;
    /// The colour or the font whose definition is being read.
    std::string m_color;
    std::string m_font;
};
