#pragma once

#include "note/NoteAttributes.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

#include <optional>

/// What the members of a note package hold.
struct NotePackageContents {
    /// None when it could not be decoded; `textError` says why then.
    std::optional<NSMutableAttributedString> text = NSMutableAttributedString();
    NSError textError;
    /// Whether there was a NoteText; true of an empty one too, because that makes the note an empty one, and
    /// nothing is recovered in its place.
    bool hasText = false;
    /// None when no file NoteAttributes was visited.
    std::optional<NoteAttributes> attributes;

    /// Whether the note must be read another way.
    [[nodiscard]] bool isUnreadable() const { return !text || !hasText; }
};

/// Visits the members of the package, a folder, in the order of their names. A NoteText that is empty or no
/// file ends the visit: what comes behind it is not looked at. A note that lost its text so opens as an empty
/// one, and other readers of the form do the same. A text that cannot be decoded is logged.
[[nodiscard]] NotePackageContents contentsOfNotePackage(const NSFileWrapper& package);

/// The contents' text as it is shown; the attachments have the package's members for their files.
[[nodiscard]] NSAttributedString
shownNoteText(NSMutableAttributedString text, const NoteAttributes& attributes, const NSFileWrapper& package);
