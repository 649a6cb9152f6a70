#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// A colour with a value for each appearance: 0xRRGGBBAA in sRGB.
struct DynamicColor {
    std::u16string_view name;
    std::uint32_t light;
    std::uint32_t dark;
};

inline constexpr std::u16string_view kSystemCatalogName = u"System";
inline constexpr std::u16string_view kAssetCatalogName = u"Assets";

/// The catalog "System", by name.
[[nodiscard]] std::span<const DynamicColor> systemColors();

/// The asset catalog of the application: its highlight colours.
[[nodiscard]] std::span<const DynamicColor> assetColors();

/// Null when there is none of the name.
[[nodiscard]] const DynamicColor* dynamicColorNamed(std::span<const DynamicColor> colors,
                                                    std::u16string_view name);
