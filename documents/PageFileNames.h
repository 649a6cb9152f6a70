#pragma once

#include <string>
#include <string_view>

/// A page as HTMLFromRange writes it, with its files found in `folder` beside it, or beside it for an empty
/// name: images by relative URLs, and links in place of the other files, which a browser would show as
/// nothing. One pass.
[[nodiscard]] std::string pageWithFilesInFolder(std::string_view page, std::u16string_view folder);
