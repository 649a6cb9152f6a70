#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>

/// How rich text becomes Markdown.
struct MarkdownExportOptions {
    /// Where the files are, seen from the Markdown: "list_files". Empty for beside it.
    std::u16string filesFolder;
};

/// A text as Markdown of the kind that attributedStringWithMarkdown reads back: headings, lists in lists,
/// boxes to tick, quotes (blocks with a line at their left and nothing else), code, rules, tables, strong,
/// emphasised, struck, highlighted, raised and lowered text, and links but for
/// those that isLinkToBeLeftOut names. An attachment is an image or a link
/// by its file's name, in the folder of the options. Of tables, the first row is the head; cells that others
/// reach over are empty. What Markdown has no form for is left out: sizes, colours, alignment. Emphasis
/// between punctuation and a letter leaves the punctuation out, as it would not be read otherwise; emphasis
/// in emphasis or struck through within a word is not always read back. Ends with a line end unless it is
/// empty. Linear in the text.
[[nodiscard]] std::u16string markdownWithAttributedString(const NSAttributedString& text,
                                                          const MarkdownExportOptions& options = {});
