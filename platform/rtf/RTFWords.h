#pragma once

#include <span>
#include <string_view>

/// What a control word means to a reader that is after the text.
enum class RTFAction {
    /// Formatting, or a word that is not known.
    None,
    /// Stands for the character in `character`.
    Character,
    /// Ends a paragraph, a section or a cell.
    LineEnd,
    /// The group holds nothing of the text.
    SkipGroup,
    /// The group is part of the text, on lines of its own.
    TextGroup,
    /// The group is part of the text, even when marked as one that may be skipped.
    InlineGroup,
    /// The group holds the document's description.
    InformationGroup,
    /// Within it, the group holds the entry named in `fieldName`.
    InformationEntry,
    /// The group holds the fonts.
    FontTable,
    /// The group holds a text in a code page, then the same in Unicode.
    AlternativesGroup,
    UnicodeAlternative,
    /// The group names an attached file; a placeholder byte follows it.
    AttachmentGroup,
    UnicodeCharacter,
    UnicodeSkipCount,
    Font,
    AssociatedFont,
    FontCharset,
    FontCodePage,
    DefaultFont,
    MainFontRun,
    AssociatedFontRun,
    AnsiCodePage,
    MacintoshCharacters,
    PCCharacters,
    PCInternationalCharacters,
    Hidden,
    Plain,
};

struct RTFWord {
    std::string_view name;
    RTFAction action = RTFAction::None;
    char32_t character = 0;
    std::string_view fieldName{};
};

/// The meaning of a control word by its name, in which case matters.
[[nodiscard]] const RTFWord& meaningOfRTFWord(std::string_view name);

/// All words that have a meaning.
[[nodiscard]] std::span<const RTFWord> textWords();
