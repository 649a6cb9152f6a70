#pragma once

#include <string_view>

/// Whether a BMP file says that its header is longer than any form of it is, or that it has more colours to
/// choose from than its pixels can tell apart. Its decoder would take memory for either, up to 4 GB, before
/// it looks whether they are there. False for bytes too few for that to be said.
[[nodiscard]] bool overstatesBitmapHeader(std::string_view bitmapFile);
