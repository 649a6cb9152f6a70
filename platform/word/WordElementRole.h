#pragma once

#include <string_view>

/// What an element of a text means for who reads it.
enum class WordElementRole {
    None,
    Alternative,
    Alternatives,
    Cell,
    Comment,
    CommentReference,
    Denominator,
    Endnote,
    EndnoteReference,
    FieldCharacter,
    FieldInstruction,
    Footnote,
    FootnoteReference,
    /// With all it holds.
    Hidden,
    LineBreak,
    Link,
    Lowered,
    NoBreakHyphen,
    NoteMark,
    PageMargins,
    PageSize,
    Paragraph,
    Raised,
    Row,
    Run,
    SimpleField,
    SoftHyphen,
    Symbol,
    Tab,
    Table,
    Text,
    TextBox,
    WordArt,
};

[[nodiscard]] WordElementRole wordElementRole(std::string_view localName);
