#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A text that a PNG holds beside its picture.
struct PNGTextEntry {
    /// As the format names it: "Title", "Author", "Description", "Comment" ...
    std::string keyword;
    /// UTF-8.
    std::string text;
};

/// The texts of a PNG's tEXt, zTXt and iTXt chunks, up to the first fault in the bytes. Compressed texts are
/// expanded up to 64 KB, and 1,000 texts are taken at most. Empty when `bytes` is no PNG.
[[nodiscard]] std::vector<PNGTextEntry> textsOfPNG(std::string_view bytes);
