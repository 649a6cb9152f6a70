#include "tests/rtf/RandomRTF.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr auto kPieces = std::to_array<std::string_view>({
    "{",
    "}",
    "\\par",
    "\\pard",
    "\\intbl",
    "\\itap2",
    "\\cell",
    "\\nestcell",
    "\\row",
    "\\nestrow",
    "\\trowd",
    "\\cellx9",
    "\\clvmrg",
    "\\clmrg",
    "\\lastrow",
    "\\u8804 ",
    "\\uc2",
    "\\'e9",
    "\\*",
    "{\\*\\x ",
    "{\\fonttbl",
    "{\\colortbl",
    "{\\*\\expandedcolortbl",
    "{\\*\\listtable",
    "{\\list",
    "{\\listlevel",
    "{\\leveltext",
    "{\\*\\listoverridetable",
    "\\ls1",
    "\\listid1",
    "{\\field",
    "{\\*\\fldinst ",
    "{\\fldrslt ",
    "{\\info",
    "{\\title ",
    "{\\upr",
    "{\\*\\ud ",
    "{\\pict\\pngblip ",
    "{\\NeXTGraphic ",
    "\\bin3 ",
    "text;",
    "\xAC",
    "\\f0",
    "\\fcharset128",
    "\\plain",
    "\\v",
    "\\tx9",
    "{\\pntext ",
    "{\\shptxt ",
    "{\\v ",
    "\\v0",
    "\\line",
    "\\uc0",
    "\\u55357",
    "\\u56832",
    "\\tab",
    "\\f1",
    "{\\*\\nesttableprops",
    "\\dbch",
    "\\af1",
    "\\ansicpg932",
    "\x82",
    "\\~",
});

std::size_t below(std::size_t count, std::mt19937& random)
{
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

} // namespace

std::string randomRTF(std::mt19937& random, std::size_t pieceCount)
{
    std::string document = "{\\rtf1\\cocoartf1";
    for (; pieceCount > 0; --pieceCount)
        document += kPieces.at(below(kPieces.size(), random));
    return document;
}

std::string damagedRTF(std::string document, std::mt19937& random)
{
    constexpr std::size_t kBeginning = 5;
    constexpr std::size_t kMostChanges = 6;
    constexpr std::size_t kRepeated = 20;
    constexpr std::string_view kBytes = "{}\\ a0*;'\xE9";
    if (below(2, random) == 0)
        document.resize(std::min(document.size(), kBeginning + below(document.size() + 1, random)));
    for (auto changes = below(kMostChanges, random); changes > 0 && document.size() > kBeginning; --changes) {
        const auto offset = kBeginning + below(document.size() - kBeginning, random);
        switch (below(3, random)) {
        case 0:
            document.erase(offset, 1);
            break;
        case 1:
            document[offset] = kBytes.at(below(kBytes.size(), random));
            break;
        default:
            document.insert(offset, document.substr(below(document.size(), random), kRepeated));
        }
    }
    return document;
}
