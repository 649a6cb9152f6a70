#include "platform/rtf/RTFCodePages.h"

#include <algorithm>
#include <array>

namespace {

struct FontCharset {
    std::int32_t charset;
    std::uint16_t codePage;
};

// 77 to 89 are the Macintosh scripts of old files.
constexpr auto kFontCharsets = std::to_array<FontCharset>({
    {0, 1252},   {77, 10000}, {78, 932},   {79, 949},   {80, 936},   {81, 950},   {83, 1255},
    {84, 1256},  {85, 1253},  {86, 1254},  {87, 874},   {88, 1250},  {89, 10007}, {128, 932},
    {129, 949},  {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254}, {163, 1258},
    {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {254, 437},
});

struct CodePage {
    std::uint16_t number;
    std::string_view charsetName;
};

constexpr auto kCodePages = std::to_array<CodePage>({
    {437, "ibm437"},        {708, "iso-8859-6"},       {737, "ibm-737"},       {775, "ibm-775"},
    {850, "ibm850"},        {852, "ibm852"},           {855, "ibm-855"},       {857, "ibm-857"},
    {858, "ibm-858"},       {862, "ibm-862"},          {866, "ibm866"},        {874, "windows-874"},
    {932, "windows-31j"},   {936, "gb18030"},          {949, "windows-949"},   {950, "windows-950"},
    {1250, "windows-1250"}, {1251, "windows-1251"},    {1252, "windows-1252"}, {1253, "windows-1253"},
    {1254, "windows-1254"}, {1255, "windows-1255"},    {1256, "windows-1256"}, {1257, "windows-1257"},
    {1258, "windows-1258"}, {1361, "windows-949"},     {10000, "macintosh"},   {10001, "windows-31j"},
    {10006, "x-mac-greek"}, {10007, "x-mac-cyrillic"}, {10029, "x-mac-ce"},    {10081, "x-mac-turkish"},
    {20866, "koi8-r"},      {21866, "koi8-u"},         {28592, "iso-8859-2"},  {54936, "gb18030"},
    {65001, "utf-8"},
});

} // namespace

std::uint16_t codePageForFontCharset(std::int32_t charset)
{
    const auto* const found
        = std::find_if(kFontCharsets.begin(), kFontCharsets.end(),
                       [charset](const FontCharset& entry) { return entry.charset == charset; });
    return found == kFontCharsets.end() ? std::uint16_t{0} : found->codePage;
}

std::string_view charsetNameForCodePage(std::uint16_t codePage)
{
    const auto* const found
        = std::find_if(kCodePages.begin(), kCodePages.end(),
                       [codePage](const CodePage& entry) { return entry.number == codePage; });
    return found == kCodePages.end() ? "windows-1252" : found->charsetName;
}
