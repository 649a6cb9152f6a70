#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSRange.h"
#include "platform/text/NSAttributedString.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// From a note's text as packages store it to the text as it is shown. Each step is one pass over the runs.

/// The text in a NoteText member; none, with the reason in `error` and in the log, when the bytes are no
/// archived text.
[[nodiscard]] std::optional<NSMutableAttributedString> unarchivedNoteText(std::string_view archive,
                                                                          NSError& error);

/// Removes white backgrounds, which would show in the dark appearance.
void removeWhiteBackgrounds(NSMutableAttributedString& text);

/// Gives the paragraphs of checklist items the style that their boxes ask for; of several boxes the last.
void restoreChecklistParagraphs(NSMutableAttributedString& text);

/// Puts dividers in place of the text that stands for them, the last first. A range that ends with the text,
/// or behind it, is left as text: so a divider that ends a note comes back as three asterisks. Notes have
/// always been read that way. An empty range puts a divider in without taking text away. Lists that jump back
/// and forth over a large text, have more ranges than the text units, or many empty ones, are cut, which is
/// logged.
void restoreDividers(NSMutableAttributedString& text, const std::vector<NSRange>& ranges);

/// The characters of the same: each divider is the one that stands for an attachment.
[[nodiscard]] std::u16string charactersWithDividers(std::u16string_view characters,
                                                    const std::vector<NSRange>& ranges);

/// Gives highlighted text the colours of its types; or, of notes from when colours were stored, the types of
/// its colours.
void restoreHighlights(NSMutableAttributedString& text, bool usesColorTypes);
