// Any text is Markdown, and what it is read as can be written as Markdown and as a page.

#include "fuzz/UTF16Input.h"
#include "markdown/MarkdownExport.h"
#include "markdown/MarkdownImport.h"
#include "platform/html/NSAttributedStringHTML.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto markdown = UTF16Input(data, size);
    const auto text = attributedStringWithMarkdown(markdown);
    // An item's marker and tabs are all that is added to what stands in the text, and a rule is three signs.
    const bool isBounded = text.length() <= 8 * markdown.size();
    const auto written = markdownWithAttributedString(text);
    const bool isEmpty = text.length() == 0;
    if (!isBounded || (isEmpty && !written.empty()) || (!written.empty() && !written.ends_with(u'\n')))
        std::abort();
    if (!NSAttributedStringDocumentFormats::HTMLFromRange(text, {0, text.length()}))
        std::abort();
    (void)attributedStringWithMarkdown(written); // Any text will do.
    return 0;
}
