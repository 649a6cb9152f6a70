#pragma once

#include "platform/word/WordPropertyReader.h"
#include "platform/word/WordTableProperties.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What a style says, with all that it is based on.
struct WordStyle {
    WordParagraphProperties paragraph;
    WordRunProperties run;
    WordTableProperties table;
    /// From 1 for a heading; 0 for other styles.
    int headingLevel = 0;
};

/// The styles of a document.
class WordStyles {
public:
    /// Null for an identifier that no style has.
    [[nodiscard]] const WordStyle* style(std::string_view identifier) const;

    /// What a paragraph without a style is set in; null when the document says nothing of it.
    [[nodiscard]] const WordStyle* defaultParagraphStyle() const { return style(m_defaultParagraph); }

    [[nodiscard]] const WordStyle* defaultTableStyle() const { return style(m_defaultTable); }

    /// What holds beneath all styles.
    [[nodiscard]] const WordStyle& defaults() const { return m_defaults; }

private:
    friend class WordStylesHandler;

    WordStyle m_defaults;
    std::map<std::string, WordStyle, std::less<>> m_styles;
    std::string m_defaultParagraph;
    std::string m_defaultTable;
};

/// Reads a styles part. Styles and theme must outlive the handler. Styles beyond a bound are not kept.
class WordStylesHandler final : public XMLHandler {
public:
    WordStylesHandler(WordStyles& styles, const WordTheme& theme)
        : m_styles(styles)
        , m_properties(theme)
        , m_tableProperties(theme)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;

    /// Gives every style what it is based on. To be called once, when the part is read. Costs time in
    /// proportion to the styles; a style based on itself by way of others is based on nothing.
    void resolve();

private:
    struct Definition {
        std::string identifier;
        std::string base;
        WordStyle own;
    };

    void beginStyle(const XMLAttributes& attributes);
    void readStyleElement(std::string_view localName, const XMLAttributes& attributes);
    void takeProperties(WordPropertyReader::Ended ended);
    void endStyle();

    [[nodiscard]] WordStyle& target() { return m_isInStyle ? m_current.own : m_styles.m_defaults; }

    WordStyles& m_styles;
    WordPropertyReader m_properties;
    WordTablePropertyReader m_tableProperties;
    std::vector<Definition> m_definitions;
    Definition m_current;
    bool m_isInStyle = false;
    std::size_t m_depth = 0;
    /// Of the looks that a table's first row and other parts have, which are left out; 0 outside.
    std::size_t m_skippedDepth = 0;
};
