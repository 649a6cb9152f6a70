#pragma once

#include "platform/foundation/NSError.h"
#include "platform/text/NSAttributedString.h"

#include <optional>
#include <string>

/// A file that is read as rich text.
struct RichTextFile {
    enum class Kind { Page, Markdown, PlainText, Archive };

    Kind kind = Kind::PlainText;
    NSAttributedString text;
    /// What the file says, else its name without the extension.
    std::u16string title;
};

/// Reads a page, Markdown, plain text or the keyed archive of an attributed string, in the user's Body style
/// where the file says nothing of fonts. Images beside it become attachments; nothing else is read, and
/// nothing fetched.
///
/// None, with the reason in `error`, when the file cannot be read, is larger than 32 MB, or is of no such
/// kind.
[[nodiscard]] std::optional<RichTextFile> readRichTextFile(const std::string& path, NSError* error);
