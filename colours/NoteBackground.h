#pragma once

#include "platform/text/NSColor.h"

#include <string_view>

/// Archived colour data: the user's default background of notes.
inline constexpr std::u16string_view CVLNoteDefaultBackgroundColorKey = u"CVLNoteDefaultBackgroundColor";

namespace CVLExtensions {

/// The user's choice from the standard user defaults. White and black, like no or an unreadable choice, give
/// the system's text background colour, which follows the appearance.
[[nodiscard]] NSColor::Ref defaultNoteBackgroundColor();

} // namespace CVLExtensions
