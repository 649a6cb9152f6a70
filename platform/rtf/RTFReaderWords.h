#pragma once

#include "platform/rtf/RTFCharacterWords.h"
#include "platform/rtf/RTFDocumentReading.h"
#include "platform/rtf/RTFParagraphWords.h"
#include "platform/rtf/RTFRowFormat.h"
#include "platform/rtf/RTFWords.h"

#include <string_view>
#include <variant>

/// What the reader itself does for a word.
enum class RTFReaderAction {
    FontTable,
    ColorTable,
    ExpandedColorTable,
    ListTable,
    ListNumberTable,
    Information,
    Field,
    FieldInstruction,
    FieldResult,
    ListMarker,
    Attachment,
    Picture,
    /// The group is read for what it holds, also when it may be passed over.
    OpenGroup,
    SkipGroup,
    Font,
    Plain,
    Hidden,
    KernSwitch,
    RowStart,
    ParagraphEnd,
    CellEnd,
    NestedCellEnd,
    RowEnd,
    NestedRowEnd,
};

/// The meaning of a word to the reader of documents: a change of a format, something to do, what it means to
/// the text alone, or nothing.
using RTFReaderWord = std::variant<std::monostate, RTFCharacterChange, RTFParagraphChange, RTFRowChange,
                                   RTFDocumentChange, RTFReaderAction, const RTFWord*>;

[[nodiscard]] const RTFReaderWord& readerWordNamed(std::string_view name);
