#pragma once

#include "platform/rtf/RTFCollectedText.h"
#include "platform/rtf/RTFFonts.h"
#include "platform/rtf/RTFGroups.h"
#include "platform/rtf/RTFHandler.h"
#include "platform/rtf/RTFTokenizer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// The document that bytes begin with, behind a byte-order mark and blanks; none when they are no RTF.
[[nodiscard]] std::optional<std::string_view> rtfDocumentIn(std::string_view bytes);

/// Finds the characters of a document and what is said about them: groups and where they go, code pages and
/// the fonts that choose them, Unicode characters and their stand-ins, what is hidden. One pass, in time
/// proportional to the bytes; any bytes may come in, and groups may nest without limit.
class RTFParser {
public:
    /// The document, from `rtfDocumentIn`, and the handler must outlive it.
    RTFParser(std::string_view document, RTFHandler& handler)
        : m_tokenizer(document)
        , m_handler(handler)
        , m_text(handler)
    {
    }

    /// Gives the handler everything. Whether the outermost group was closed; what follows it is not looked
    /// at.
    bool parse();

private:
    [[nodiscard]] RTFGroup& group() { return m_groups.current(); }

    [[nodiscard]] const RTFGroup& group() const { return m_groups.current(); }

    [[nodiscard]] bool isText() const { return group().destination == RTFDestination::Text; }

    [[nodiscard]] bool isShown() const { return isText() && !group().isHidden; }

    void take(const RTFToken& token);
    void beginGroup();
    void endGroup();
    void takeWord(const RTFToken& token);
    bool applyCharacter(RTFCharacterAction word, RTFParameter parameter);
    void applyAction(RTFCharacterAction word, RTFParameter parameter);
    void applyToDocument(RTFCharacterAction word, RTFParameter parameter);
    void applyFont(RTFAction action, RTFParameter parameter);
    void setFont(std::int32_t number);
    bool applyInText(const RTFWord& word, RTFParameter parameter);
    bool applyElsewhere(std::string_view name, RTFParameter parameter);
    void beginDestination(RTFDestination destination);
    void takeSymbol(char symbol);
    void takeText(std::string_view bytes);
    void takeBytes(std::string_view bytes);
    void takeUnicode(std::int32_t parameter);
    void takeCharacter(char32_t character);
    void takeBodyAction(RTFBodyAction action, RTFParameter parameter);

    void flush() { m_text.flush(group().destination); }

    [[nodiscard]] bool consumeStandIn();
    [[nodiscard]] bool takesCharacters() const;
    [[nodiscard]] std::uint16_t codePage() const;

    RTFTokenizer m_tokenizer;
    RTFHandler& m_handler;
    RTFGroups m_groups;
    RTFFonts m_fonts;
    RTFCollectedText m_text;
    std::size_t m_standInsLeft = 0;
    bool m_isAtGroupStart = false;
    bool m_isOptional = false;
    bool m_isBehindAttachment = false;
};
