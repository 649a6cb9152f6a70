#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The platform's view of a string as a path: components between slashes, and an extension behind the last
/// dot of the last component. Slashes at the end do not count. Nothing here asks the file system.

/// "/", when there are only slashes; empty for the empty path.
[[nodiscard]] std::u16string lastPathComponent(std::u16string_view path);

/// Without its dot. None, the empty string, when the dot is the component's first or last character: neither
/// ".profile" nor "notes." has an extension.
[[nodiscard]] std::u16string pathExtension(std::u16string_view path);

/// The path without its extension and the dot; the path as it is, but for slashes at its end, when it has
/// none.
[[nodiscard]] std::u16string stringByDeletingPathExtension(std::u16string_view path);

/// "/a/b" gives "/", "a" and "b". A slash at the end gives a last component "/".
[[nodiscard]] std::vector<std::u16string> pathComponents(std::u16string_view path);
