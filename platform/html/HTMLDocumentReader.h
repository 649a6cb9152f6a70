#pragma once

#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSColor.h"

#include <string>
#include <string_view>

/// What a page in memory is as an attributed string.
struct HTMLDocument {
    NSAttributedString text;
    std::u16string title;
    /// The URL that what belongs to the page is found from; empty when it is not known.
    std::string baseURL;
    NSColor::Ref backgroundColor;
};

/// Reads a page of UTF-8. Any text is a page.
[[nodiscard]] HTMLDocument readHTMLDocument(std::string_view page, const NSHTMLReadingOptions& options);
