#include "platform/text/SystemColors.h"

#include <algorithm>
#include <array>

namespace {

// The accent is blue, as it is until a user chooses another.
constexpr std::array kSystemColors{
    DynamicColor{u"alternateSelectedControlColor", 0x0063e1ff, 0x0058d0ff},
    DynamicColor{u"alternateSelectedControlTextColor", 0xffffffff, 0xffffffff},
    DynamicColor{u"alternatingContentBackgroundColor", 0xf4f5f5ff, 0xffffff0d},
    DynamicColor{u"controlAccentColor", 0x007affff, 0x007affff},
    DynamicColor{u"controlBackgroundColor", 0xffffffff, 0x1e1e1eff},
    DynamicColor{u"controlColor", 0xffffffff, 0xffffff40},
    DynamicColor{u"controlDarkShadowColor", 0x000000ff, 0x000000ff},
    DynamicColor{u"controlHighlightColor", 0xe2e2e2ff, 0x5a5a5aff},
    DynamicColor{u"controlLightHighlightColor", 0xffffffff, 0xffffffff},
    DynamicColor{u"controlShadowColor", 0x808080ff, 0x808080ff},
    DynamicColor{u"controlTextColor", 0x000000d8, 0xffffffd8},
    DynamicColor{u"disabledControlTextColor", 0x00000040, 0xffffff40},
    DynamicColor{u"findHighlightColor", 0xffff00ff, 0xffff00ff},
    DynamicColor{u"gridColor", 0xe6e6e6ff, 0x3b3b3bff},
    DynamicColor{u"headerColor", 0xaaaaaaff, 0x323232ff},
    DynamicColor{u"headerTextColor", 0x000000d8, 0xffffffff},
    DynamicColor{u"highlightColor", 0xffffffff, 0xb4b4b4ff},
    DynamicColor{u"keyboardFocusIndicatorColor", 0x0067f480, 0x1aa9ff80},
    DynamicColor{u"knobColor", 0xbfbfbfff, 0x6a6a6aff},
    DynamicColor{u"labelColor", 0x000000d8, 0xffffffd8},
    DynamicColor{u"linkColor", 0x0068daff, 0x419cffff},
    DynamicColor{u"placeholderTextColor", 0x00000040, 0xffffff40},
    DynamicColor{u"quaternaryLabelColor", 0x0000001a, 0xffffff1a},
    DynamicColor{u"quinaryLabelColor", 0x0000000d, 0xffffff0d},
    DynamicColor{u"scrollBarColor", 0xaaaaaaff, 0x4d4d4dff},
    DynamicColor{u"scrubberTexturedBackgroundColor", 0xf5f5f5ff, 0x2c2c2cff},
    DynamicColor{u"secondaryLabelColor", 0x0000007f, 0xffffff8c},
    DynamicColor{u"secondarySelectedControlColor", 0xdcdcdcff, 0x464646ff},
    DynamicColor{u"selectedContentBackgroundColor", 0x0063e1ff, 0x0058d0ff},
    DynamicColor{u"selectedControlColor", 0xb3d7ffff, 0x3f638bff},
    DynamicColor{u"selectedControlTextColor", 0x000000d8, 0xffffffd8},
    DynamicColor{u"selectedKnobColor", 0x7f7f7fff, 0x9a9a9aff},
    DynamicColor{u"selectedMenuItemColor", 0x0063e1ff, 0x0058d0ff},
    DynamicColor{u"selectedMenuItemTextColor", 0xffffffff, 0xffffffff},
    DynamicColor{u"selectedTextBackgroundColor", 0xb3d7ffff, 0x3f638bff},
    DynamicColor{u"selectedTextColor", 0x000000ff, 0xffffffff},
    DynamicColor{u"separatorColor", 0x0000001a, 0xffffff1a},
    DynamicColor{u"shadowColor", 0x000000ff, 0x000000ff},
    DynamicColor{u"systemBlueColor", 0x007affff, 0x0a84ffff},
    DynamicColor{u"systemBrownColor", 0xa2845eff, 0xac8e68ff},
    DynamicColor{u"systemCyanColor", 0x55bef0ff, 0x5ac8f5ff},
    DynamicColor{u"systemGrayColor", 0x8e8e93ff, 0x98989dff},
    DynamicColor{u"systemGreenColor", 0x28cd41ff, 0x32d74bff},
    DynamicColor{u"systemIndigoColor", 0x5856d6ff, 0x5e5ce6ff},
    DynamicColor{u"systemMintColor", 0x00c7beff, 0x63e6e2ff},
    DynamicColor{u"systemOrangeColor", 0xff9500ff, 0xff9f0aff},
    DynamicColor{u"systemPinkColor", 0xff2d55ff, 0xff375fff},
    DynamicColor{u"systemPurpleColor", 0xaf52deff, 0xbf5af2ff},
    DynamicColor{u"systemRedColor", 0xff3b30ff, 0xff453aff},
    DynamicColor{u"systemTealColor", 0x59adc4ff, 0x6ac4dcff},
    DynamicColor{u"systemYellowColor", 0xffcc00ff, 0xffd60aff},
    DynamicColor{u"tertiaryLabelColor", 0x00000042, 0xffffff40},
    DynamicColor{u"textBackgroundColor", 0xffffffff, 0x1e1e1eff},
    DynamicColor{u"textColor", 0x000000ff, 0xffffffff},
    DynamicColor{u"textInsertionPointColor", 0x007affff, 0x007affff},
    DynamicColor{u"underPageBackgroundColor", 0x969696e6, 0x282828ff},
    DynamicColor{u"unemphasizedSelectedContentBackgroundColor", 0xdcdcdcff, 0x464646ff},
    DynamicColor{u"unemphasizedSelectedTextBackgroundColor", 0xdcdcdcff, 0x464646ff},
    DynamicColor{u"unemphasizedSelectedTextColor", 0x000000ff, 0xffffffff},
    DynamicColor{u"windowBackgroundColor", 0xecececff, 0x323232ff},
    DynamicColor{u"windowFrameColor", 0xaaaaaaff, 0x545454ff},
    DynamicColor{u"windowFrameTextColor", 0x000000d8, 0xffffffd8},
};

// docs/colours.md says how these were chosen.
constexpr std::array kAssetColors{
    DynamicColor{u"BlueHighlightColor", 0x004bfcff, 0x75b9e9ff},
    DynamicColor{u"GreenHighlightColor", 0x266b3eff, 0x31ff87ff},
    DynamicColor{u"PinkHighlightColor", 0xb8257bff, 0xfb6395ff},
    DynamicColor{u"PurpleHighlightColor", 0x3b1183ff, 0xaf7fffff},
    DynamicColor{u"YellowHighlightColor", 0x94590fff, 0xfba521ff},
};

constexpr bool byName(const DynamicColor& one, const DynamicColor& other)
{
    return one.name < other.name;
}

static_assert(std::is_sorted(kSystemColors.begin(), kSystemColors.end(), byName));
static_assert(std::is_sorted(kAssetColors.begin(), kAssetColors.end(), byName));

} // namespace

std::span<const DynamicColor> systemColors()
{
    return kSystemColors;
}

std::span<const DynamicColor> assetColors()
{
    return kAssetColors;
}

const DynamicColor* dynamicColorNamed(std::span<const DynamicColor> colors, std::u16string_view name)
{
    const auto* const found
        = std::lower_bound(colors.data(), colors.data() + colors.size(), DynamicColor{name, 0, 0}, byName);
    return found != colors.data() + colors.size() && found->name == name ? found : nullptr;
}
