#pragma once

#include "note/CVLNoteFile.h"
#include "note/NoteApplication.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// A file in a note.
struct NoteAttachment {
    /// Whether the note shows it as an icon with its name, and not itself in its place.
    bool isIcon = false;
    std::u16string name;
    /// A type identifier; empty for none.
    std::u16string type;
    /// Bytes, of a folder those of all its files; none when the file is missing.
    std::optional<std::size_t> size;
};

/// What `corvel note info` tells of a note.
struct NoteInformation {
    /// UTF-16 units.
    NSUInteger length = 0;
    std::size_t runCount = 0;
    std::vector<NoteAttachment> attachments;
    std::size_t dividerCount = 0;
    std::size_t openItemCount = 0;
    std::size_t doneItemCount = 0;
    /// Highlighted passages.
    std::size_t highlightCount = 0;
    /// "#rrggbb"; none for the text's own background.
    std::optional<std::u16string> background;
    bool hasSmallImages = false;
    std::size_t drawingCount = 0;
    NoteApplication application;
    /// Whether the text comes from the RTFD part.
    bool isRecovered = false;
};

/// Of a note that was read from a package. Linear in the note.
[[nodiscard]] NoteInformation informationOfNote(const CVLNoteFile& note, const NSFileWrapper& package);
