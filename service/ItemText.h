#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"
#include "platform/types/UTType.h"
#include "service/ItemSources.h"

#include <optional>
#include <string>
#include <string_view>

/// Which rule decided what text an item has, in the order in which the rules are tried.
enum class ItemTextRule { RecognisedText, NotePackage, MailMessage, PDF, Text, WordDocument, Image, ByFile };

/// A word or two for people: "note package".
[[nodiscard]] std::string_view nameOfItemTextRule(ItemTextRule rule);

struct ItemText {
    ItemTextRule rule = ItemTextRule::ByFile;
    /// UTF-8. Without a text the index reads the file through its own extractors.
    std::optional<std::string> text;
    /// What the index's extractors are told of the file.
    std::optional<std::string> mimeTypeHint;
    /// None when it cannot be read.
    std::optional<UTType> contentType;
    /// Why the content could not be read, for the rules where that is a failure.
    std::optional<NSError> error;
};

/// Finds the text of the item at `url` by its content type. Texts longer than ContentLimits::textBytes are
/// cut, which is logged. Does not raise for anything the file may hold.
[[nodiscard]] ItemText textOfItem(const NSURL& url, std::string_view textRecognitionData,
                                  const ItemSources& sources);
