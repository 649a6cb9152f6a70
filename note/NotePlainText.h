#pragma once

#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <optional>
#include <string>

/// The characters of the note at a URL, for a search: those of CVLNoteFile's noteText, recovered from the
/// package's RTFD part where need be. Only the members that hold text are read, so that a note with films in
/// it costs no more than one without.
///
/// None when there is no note that can be read, or one of those members has more bytes than
/// `mostMemberBytes`, which is logged. Links are not followed.
[[nodiscard]] std::optional<std::u16string> plainTextOfNotePackage(const NSURL& url,
                                                                   std::size_t mostMemberBytes);
