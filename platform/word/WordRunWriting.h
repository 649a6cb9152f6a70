#pragma once

#include "platform/text/NSAttributedString.h"
#include "platform/word/WordCharacterWriting.h"
#include "platform/word/WordPictureWriting.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Writes the characters of a text with their looks, links and attachments.
class WordRunWriting {
public:
    /// All of them must outlive it.
    WordRunWriting(WordXML& xml, const NSAttributedString& text, const WordStyleLooks& styles,
                   WordRelationshipWriting& relationships, WordPictureWriting& pictures);

    /// Writes what lies within a paragraph of a style: 0 for plain text, else that of the heading.
    ///
    /// U+2028, U+0085 and a vertical tab break the line, a form feed the page. Text whose characters run from
    /// right to left is marked as such.
    void writeContent(NSRange content, std::size_t style);

    /// The looks of a paragraph's end, at `location`, as properties of runs; empty for those of the style.
    [[nodiscard]] const std::string& endProperties(NSUInteger location, std::size_t style);

private:
    /// What is written of a run's attributes.
    struct Run {
        const NSAttributes* attributes = nullptr;
        std::size_t style = 0;
        std::string properties;
        std::string address;
        std::u16string toolTip;
        std::shared_ptr<NSTextAttachment> attachment;
    };

    static constexpr std::size_t kRunPlaces = 1024;

    [[nodiscard]] const Run& runOf(const NSAttributes& attributes, std::size_t style);
    void applyLink(const Run& run);
    void closeLink();
    void writeRun(const Run& run, std::u16string_view text);
    void writePieces(const Run& run, std::u16string_view text);
    void writePiece(const Run& run, std::u16string_view text, bool isRightToLeft);
    void writeCharacters(std::u16string_view text);
    void writeAttachment(const Run& run);

    WordXML& m_xml;
    const NSAttributedString& m_text;
    std::u16string_view m_characters;
    const WordStyleLooks& m_styles;
    WordRelationshipWriting& m_relationships;
    WordPictureWriting& m_pictures;
    /// Those met not long ago: runs mostly share their attributes. The place is by the attributes' address.
    std::vector<Run> m_runs;
    /// Of the link that is open; empty for none.
    std::string m_address;
    std::u16string m_toolTip;
};
