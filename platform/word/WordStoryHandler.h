#pragma once

#include "platform/word/WordDrawings.h"
#include "platform/word/WordElementRole.h"
#include "platform/word/WordNotes.h"
#include "platform/word/WordPageLayout.h"
#include "platform/word/WordPictures.h"
#include "platform/word/WordRelationships.h"
#include "platform/word/WordStoryText.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// What is known of a document, and what is gathered while its texts are read.
struct WordDocumentState {
    const WordTheme& theme;
    WordReading reading;
    WordNoteNumbers noteNumbers;
    WordPictures pictures;
    WordPageLayout layout;
};

/// Reads one part that holds text: the body, a header, a footer, notes, comments. The same words are text
/// here as in the index: deleted text, field instructions and phonetic guides are left out, and of
/// alternative contents the first that gives text is taken. A text that stands beside a paragraph, in a
/// shape or a drawing, follows it.
class WordStoryHandler final : public XMLHandler {
public:
    /// Both must outlive the handler.
    WordStoryHandler(WordDocumentState& document, const WordRelationships& relationships);

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;
    void text(std::string_view text) override;

    /// What was read, whole or up to where reading stopped.
    [[nodiscard]] const NSAttributedString& finish();

    /// Of a part of notes: where each of them stands in the text.
    [[nodiscard]] const std::vector<WordNote>& notes() const { return m_notes; }

private:
    using Role = WordElementRole;

    struct Story {
        std::unique_ptr<WordStoryText> text;
        /// Of the element that began it.
        std::size_t depth = 0;
    };

    struct Alternatives {
        std::size_t textByteCount = 0;
        std::size_t pictureCount = 0;
        /// Whether one before showed pictures, which others then show again.
        bool hasPictures = false;
    };

    struct Raised {
        std::size_t depth = 0;
        int before = 0;
    };

    [[nodiscard]] WordStoryText& story() { return *m_stories.back().text; }

    [[nodiscard]] bool readProperties(std::string_view localName, const XMLAttributes& attributes);
    [[nodiscard]] bool endProperties();
    [[nodiscard]] bool startsSkipping(Role role) const;
    void beginStory();
    void startStructure(Role role);
    void endStory();
    bool startReference(Role role, const XMLAttributes& attributes);
    void startCharacter(Role role, const XMLAttributes& attributes);
    void endStructure(Role role);
    void beginRaised(int level);
    void endRaised(std::size_t depth);
    void beginNote(WordNoteKind kind, const XMLAttributes& attributes);
    void endNote();
    void beginLink(const XMLAttributes& attributes);
    void readFieldCharacter(std::string_view kind);
    void put(std::string_view text);
    void put(char16_t unit);
    void putNoteMark();
    void putPicture(const WordDrawings::Picture& picture);
    void putSymbol(const XMLAttributes& attributes);

    WordDocumentState& m_document;
    const WordRelationships& m_relationships;
    WordPropertyReader m_properties;
    WordTablePropertyReader m_tableProperties;
    WordDrawings m_drawings;
    WordLinks m_links;
    std::vector<Story> m_stories;
    std::vector<WordNote> m_notes;
    std::vector<Alternatives> m_alternatives;
    std::vector<Raised> m_raised;
    int m_raisedLevel = 0;
    /// What the note that is being read is to begin with.
    std::u16string m_noteMark;
    bool m_isInNote = false;
    std::size_t m_depth = 0;
    /// The depth of the element that is left out with all it holds; 0 when none is.
    std::size_t m_skippedDepth = 0;
    /// The depth of the element whose own text is wanted, or is an instruction; 0 outside.
    std::size_t m_textDepth = 0;
    bool m_isInstruction = false;
    std::size_t m_textByteCount = 0;
    std::size_t m_pictureCount = 0;
};
