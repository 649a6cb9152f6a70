#pragma once

#include "service/CVLIndexingProtocol.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The text that the host recognised in the attachment `name`; none when it knows none.
[[nodiscard]] std::optional<std::string> recognisedTextOfAttachment(const AttachmentsInfo& attachmentsInfo,
                                                                    const std::string& name);

/// An attachment's text from what the host recognised and the classifier's terms: the recognised text, then
/// the terms, one per line. Empty when there is neither.
[[nodiscard]] std::string attachmentText(const std::optional<std::string>& recognisedText,
                                         const std::vector<std::string>& terms);
