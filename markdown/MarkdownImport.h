#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSFont.h"

#include <functional>
#include <string_view>

/// How Markdown becomes rich text.
struct MarkdownImportOptions {
    /// The font of plain text; headings are larger, in the same family.
    NSFont::Ref font = NSFont::userFontOfSize(NSFont::kDefaultSize);
    /// Gives the file that an image's target names; null for none. Such images become attachments, the others
    /// links.
    std::function<NSFileWrapper::Ref(std::u16string_view target)> fileForImage;
};

/// The text of Markdown (MarkdownBlocks.h and MarkdownSpans.h say of which) as rich text, of the form in
/// which pages are read too: items begin with their marker between tabs and have their lists in their styles,
/// boxes to tick being the check and the circle marker; headings have their level; a rule is a centred line
/// of three asterisks; line breaks are U+2028. Tables are cells with lines around
/// them, their heads bold. A quote is a block with a line at its left, code is of a fixed
/// pitch. Paragraphs stand apart by their spacing. Linear in the text.
[[nodiscard]] NSAttributedString attributedStringWithMarkdown(std::u16string_view markdown,
                                                              const MarkdownImportOptions& options = {});
