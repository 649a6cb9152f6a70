#pragma once

#include <string_view>

namespace CVLMarkdown {

/// Whether files of this extension (without a dot) are Markdown: those that the declaration of
/// CVLMarkdownType lists, whatever their case, diacritics and character width.
[[nodiscard]] bool isFileExtensionSupportedMarkdownExtension(std::u16string_view fileExtension);

} // namespace CVLMarkdown
