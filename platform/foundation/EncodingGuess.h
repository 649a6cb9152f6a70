#pragma once

#include <string_view>

/// The encoding, among those in use before UTF-8 and UTF-8 itself, in which `bytes` make the likeliest text:
/// each is tried on a sample of the bytes, and what comes out is weighed by how often the languages known
/// here write such letters, and by how well they fit their neighbours. A few words are usually enough. Looks
/// at 16 KB at most.
/// @return a charset name that TextDecoder takes; "windows-1252" when nothing speaks against it.
[[nodiscard]] std::string_view guessedEncoding(std::string_view bytes);
