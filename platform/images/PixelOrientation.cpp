#include "platform/images/PixelOrientation.h"

#include <array>
#include <utility>

namespace {

/// Where a shown pixel lies in the file: first the axes are exchanged, then each may run backwards.
struct Turn {
    bool exchanges = false;
    bool runsLeft = false;
    bool runsUp = false;
};

constexpr std::array<Turn, 9> kTurns{{
    {},
    {false, false, false},
    {false, true, false},
    {false, true, true},
    {false, false, true},
    {true, false, false},
    {true, false, true},
    {true, true, true},
    {true, true, false},
}};

} // namespace

BitmapPixels uprightPixels(BitmapPixels stored, int orientation)
{
    if (orientation <= 1 || orientation >= static_cast<int>(kTurns.size()))
        return stored;
    const auto turn = kTurns[static_cast<std::size_t>(orientation)];
    BitmapPixels shown{
        turn.exchanges ? stored.high : stored.wide, turn.exchanges ? stored.wide : stored.high, {}};
    shown.values.reserve(stored.values.size());
    for (std::size_t y = 0; y < shown.high; ++y) {
        for (std::size_t x = 0; x < shown.wide; ++x) {
            const auto column = turn.exchanges ? y : x;
            const auto row = turn.exchanges ? x : y;
            const auto storedColumn = turn.runsLeft ? stored.wide - 1 - column : column;
            const auto storedRow = turn.runsUp ? stored.high - 1 - row : row;
            shown.values.push_back(stored.values[storedRow * stored.wide + storedColumn]);
        }
    }
    return shown;
}
