#pragma once

#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <optional>
#include <string>

/// The characters of the note at a URL, for a search: those of CVLNoteFile's noteText, recovered from the
/// package's RTFD part where need be. Only the members that hold text are read, each when it is needed, so
/// that a note with films in it costs no more than one without. Nothing that changes no character is done to
/// it.
///
/// None when there is no note that can be read, or the member that has its text has more bytes than
/// `mostMemberBytes`, which is logged. A NoteAttributes in the binary form may have 64 MiB; one with more, or
/// one that holds more than a million values, is taken for absent, logged: the dividers stay as asterisks
/// then. Links are not followed.
[[nodiscard]] std::optional<std::u16string> plainTextOfNotePackage(const NSURL& url,
                                                                   std::size_t mostMemberBytes);
