#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

#include <optional>
#include <string>

/// Says in the log that the note at the URL is to be recovered.
void logRecovery(const NSURL& url);

/// The text of a note from its package's RTFD part alone, as it is shown: what other programs wrote, or what
/// is left of a damaged package. Background, drawings and the like are not in there. None, with the reason in
/// `error`, when that part cannot be read either.
[[nodiscard]] std::optional<NSAttributedString> noteTextFromRTFD(const NSFileWrapper& package,
                                                                 NSError& error);

/// The characters of the same, without the colours that cost most of the time.
[[nodiscard]] std::optional<std::u16string> noteCharactersFromRTFD(const NSFileWrapper& package,
                                                                   NSError& error);
