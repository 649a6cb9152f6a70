#pragma once

#include "platform/rtf/RTFCharacterWords.h"
#include "platform/rtf/RTFDestination.h"
#include "platform/rtf/RTFDocumentReading.h"
#include "platform/rtf/RTFParagraphWords.h"
#include "platform/rtf/RTFRowFormat.h"

#include <string_view>
#include <variant>

/// What a control word does to the characters of a document, whoever reads them.
enum class RTFAction {
    /// Stands for the character that is its value.
    Character,
    UnicodeCharacter,
    UnicodeSkipCount,
    /// The group is read for what it holds, also when it may be passed over.
    OpenGroup,
    AlternativesGroup,
    UnicodeAlternative,
    Font,
    AssociatedFont,
    FontCharset,
    FontCodePage,
    DefaultFont,
    MainFontRun,
    AssociatedFontRun,
    AnsiCodePage,
    /// The document's code page is the value.
    CodePage,
    Hidden,
    Plain,
};

struct RTFCharacterAction {
    RTFAction action = RTFAction::OpenGroup;
    char32_t value = 0;
};

/// What a control word does to the text that is made of the characters.
enum class RTFBodyAction {
    Field,
    FieldResult,
    KernSwitch,
    ParagraphStart,
    ParagraphEnd,
    CellEnd,
    NestedCellEnd,
    RowStart,
    RowEnd,
    NestedRowEnd,
};

/// How the text looks from here.
using RTFFormatChange = std::variant<RTFCharacterChange, RTFParagraphChange, RTFRowChange, RTFDocumentChange>;

/// The meaning of a control word; RTFDestination: its group goes there. Nothing for one that is not known.
using RTFWord
    = std::variant<std::monostate, RTFCharacterAction, RTFBodyAction, RTFDestination, RTFFormatChange>;

/// The meaning of a control word by its name, in which case matters.
[[nodiscard]] const RTFWord& meaningOfRTFWord(std::string_view name);
