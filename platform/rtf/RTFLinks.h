#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/rtf/RTFOutput.h"

#include <optional>
#include <string>
#include <string_view>

/// Links are fields, whose instruction names the address.

/// The address of a link attribute, a URL or a text; none for every other value and for an empty text.
[[nodiscard]] std::optional<std::string> addressOfLink(const NSAny& link);

/// The link attribute for an address: a URL when it has a scheme, else a text. Nil for an empty address.
[[nodiscard]] NSAny linkOfAddress(std::string_view address);

/// The address that a field's instruction names, in UTF-8; empty when the field is no link. A place within
/// the document or the target is its fragment.
[[nodiscard]] std::string addressOfInstruction(std::string_view instruction);

/// Writes a field up to its result. What the address cannot hold within its quotes is percent-encoded.
void writeLinkStart(RTFOutput& output, std::string_view address);
void writeLinkEnd(RTFOutput& output);
