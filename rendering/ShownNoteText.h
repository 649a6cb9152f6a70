#pragma once

#include "platform/text/NSAttributedString.h"
#include "rendering/NotePictureCell.h"

/// A copy of a note's text whose attachments are all ones that draw themselves: images that can be read in
/// their places (NotePictureCell), every other file as its icon and name. The note's own attachments are left
/// alone.
[[nodiscard]] NSAttributedString shownNoteText(const NSAttributedString& text, const PictureOptions& options);
