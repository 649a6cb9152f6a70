#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Gets a page's text in pieces of valid UTF-8. Answers false when it wants no more.
using HTMLTextReceiver = std::function<bool(std::string_view)>;

/// Hands over the text that a reader of the page sees: blocks on lines of their own, table cells apart by
/// tabs, white space collapsed except where it is preformatted, images by their texts. Scripts, styles,
/// templates and what is for readers without scripts are left out. Any bytes are a page; the time is linear
/// in them, the memory constant.
///
/// The encoding is that of a byte-order mark, else `charsetName` when it means something (what a mail says of
/// its part), else what the page says or its bytes look like.
/// @return the page's title, cut at 4 KB.
std::string renderHTMLText(std::string_view bytes, std::string_view charsetName,
                           const HTMLTextReceiver& receiver);
