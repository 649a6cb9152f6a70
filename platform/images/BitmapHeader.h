#pragma once

#include <string_view>

/// Whether a BMP file says that it has more colours to choose from than its pixels can tell apart. Its
/// decoder would take memory for all of them, up to 4 GB, before it looks whether they are there. False for
/// bytes too few for that to be said.
[[nodiscard]] bool claimsTooManyColours(std::string_view bitmapFile);
