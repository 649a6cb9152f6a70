#pragma once

#include "platform/word/WordProperties.h"
#include "platform/word/WordTheme.h"

#include <cstddef>
#include <string>

/// Reads the properties that styles, list levels, paragraphs and runs have in one form. Its owner hands it
/// every element, and asks for what was read when properties end.
class WordPropertyReader {
public:
    /// What has just ended.
    enum class Ended { Nothing, Paragraph, Run };

    explicit WordPropertyReader(const WordTheme& theme)
        : m_theme(theme)
    {
    }

    /// False for an element outside of properties, which is its owner's.
    bool startElement(std::string_view localName, const XMLAttributes& attributes);
    [[nodiscard]] Ended endElement();

    [[nodiscard]] bool isReading() const { return m_depth != 0; }

    // Of the properties that ended last.
    [[nodiscard]] const WordParagraphProperties& paragraph() const { return m_paragraph; }

    /// A run's; within a paragraph's those of its mark.
    [[nodiscard]] const WordRunProperties& run() const { return m_run; }

    /// The identifier of the named style; empty for none.
    [[nodiscard]] const std::string& paragraphStyle() const { return m_paragraphStyle; }

    [[nodiscard]] const std::string& runStyle() const { return m_runStyle; }

    /// Whether a change that is to be followed took the paragraph's mark away.
    [[nodiscard]] bool isMarkDeleted() const { return m_isMarkDeleted; }

private:
    void begin(bool isParagraph);
    void readElement(std::string_view localName, const XMLAttributes& attributes);

    const WordTheme& m_theme;
    bool m_isParagraph = false;
    bool m_isMarkDeleted = false;
    std::size_t m_depth = 0;
    /// The depth of run properties within a paragraph's; 0 outside.
    std::size_t m_markDepth = 0;
    /// The depth of what is left out with all it holds; 0 when nothing is.
    std::size_t m_skippedDepth = 0;
    WordParagraphProperties m_paragraph;
    WordRunProperties m_run;
    std::string m_paragraphStyle;
    std::string m_runStyle;
};
