#pragma once

#include <string_view>

/// The words for the spaces of a colour in the platform's own table.
inline constexpr std::string_view kSRGBWord = "cssrgb";
inline constexpr std::string_view kGenericRGBWord = "csgenericrgb";
inline constexpr std::string_view kDisplayP3Word = "cspthree";
inline constexpr std::string_view kGrayWord = "csgray";
inline constexpr std::string_view kCMYKWord = "cscmyk";

/// Components in it are written times this.
inline constexpr double kColorUnits = 100'000;
