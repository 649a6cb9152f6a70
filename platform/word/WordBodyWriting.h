#pragma once

#include "platform/word/WordListWriting.h"
#include "platform/word/WordPageWriting.h"
#include "platform/word/WordRunWriting.h"
#include "platform/word/WordTableWriting.h"

#include <string>

/// Writes the body of a document, paragraph by paragraph.
class WordBodyWriting {
public:
    /// All of them must outlive it.
    WordBodyWriting(const NSAttributedString& text, NSRange range, const WordPage& page,
                    const WordStyleLooks& styles, WordRelationshipWriting& relationships,
                    WordPictureWriting& pictures, WordListWriting& lists);

    /// The part of the body. To be called once.
    [[nodiscard]] std::string part();

private:
    struct Marker {
        /// With the tabs around it; 0 for none.
        std::size_t length = 0;
        std::u16string_view text;
    };

    [[nodiscard]] Marker markerOf(const WordTextParagraph& paragraph) const;
    void writeParagraph(const WordTextParagraph& paragraph);

    const WordPage& m_page;
    double m_lineHeight;
    WordXML m_xml;
    WordTextParagraphs m_paragraphs;
    WordRunWriting m_runs;
    WordListWriting& m_lists;
    WordTableWriting m_tables;
};
