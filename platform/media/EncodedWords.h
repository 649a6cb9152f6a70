#pragma once

#include <string>
#include <string_view>

/// Encoded words (RFC 2047): letters beyond ASCII in a header, "=?utf-8?B?w6k=?=". The library for mails
/// reads them too, but loses what follows a padded word, and knows fewer charsets. Words beside each other in
/// one charset are one text, even when they cut a character; what is no encoded word stays as it is.

/// `text` with its encoded words decoded.
[[nodiscard]] std::string decodedEncodedWords(std::string_view text);

/// `text` with each run of encoded words made one word in UTF-8, for fields that have a grammar of their own,
/// where a decoded comma would mean something.
[[nodiscard]] std::string unifiedEncodedWords(std::string_view text);
