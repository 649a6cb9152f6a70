#pragma once

#include <cstdint>

/// What the content of a group goes to.
enum class RTFDestination : std::uint8_t {
    Text,
    Nothing,
    FontTable,
    ColorTable,
    ExpandedColorTable,
    ListTable,
    ListNumberTable,
    Information,
    InformationEntry,
    FieldInstruction,
    /// A text in a code page, which the same in Unicode follows.
    Alternatives,
    /// The name of an attached file.
    Attachment,
    Picture,
    /// What stands before an item of a list.
    ListMarker,
    /// A header, a footer or a footnote.
    Aside,
    TextBox,
};
