#pragma once

#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <string>
#include <string_view>

/// What file names need: safety, uniqueness, comparison and display. Lengths count UTF-16 units. Only
/// makeFilenameUniqueInDirectoryAtURL looks at the disk.
namespace TSExtensions {

/// The text made safe as a file name: at most 255 units, no slash, colon, tilde, tab or line end, no dot at
/// its front, and no blanks at its ends save those that a removed line end laid bare. A name of 256 units or
/// more is cut and keeps its extension when there is room for it; cutting counts units and may halve a
/// surrogate pair. Empty when nothing safe is left. A file system that counts bytes may still refuse the
/// name.
[[nodiscard]] std::u16string stringSanitizedForFileName(std::u16string_view text);

/// `name` unchanged when nothing in `folder` has it; else the first of "base 1.extension", "base 2.extension"
/// and so on that is free, sanitised afterwards: of a name that is not safe already the result may be one
/// that the folder has. Between the asking and the use of the name another program may take it.
[[nodiscard]] std::u16string makeFilenameUniqueInDirectoryAtURL(std::u16string_view name,
                                                                const NSURL& folder);

/// The first and the last ⌊maxLength/2⌋ units around "…" when the text is longer than `maxLength`; so the
/// result has maxLength + 1 units for an even `maxLength` and maxLength for an odd one: the ellipsis comes on
/// top of the two halves. Counts units and may halve a surrogate pair.
[[nodiscard]] std::u16string stringByTruncatingMiddleWithMaxLength(std::u16string_view text,
                                                                   std::size_t maxLength);

/// Whether the two are one name to a person: case, diacritics and character width do not count.
[[nodiscard]] bool isEqualToFilename(std::u16string_view name, std::u16string_view other);

/// The very same comparison, diacritics and width included, in spite of its name.
[[nodiscard]] bool isCaseInsensitiveEqualToString(std::u16string_view text, std::u16string_view other);

/// The string that comes back from the bytes under which the file system would keep it: ends at a NUL, and
/// has U+FFFD for unpaired surrogates.
[[nodiscard]] std::u16string fileSystemRepresentationString(std::u16string_view text);

/// How the file at this path is called in front of people.
[[nodiscard]] std::u16string fileDisplayName(std::u16string_view path);

} // namespace TSExtensions
