#include "platform/text/AttributeRunTable.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr unsigned kGroupBits = 7;
constexpr std::uint8_t kMoreFollows = 0x80;
/// More than any text's length takes; what is longer is damaged.
constexpr unsigned kMaximumBits = 35;

void appendNumber(std::string& table, std::uint64_t number)
{
    for (; number >= kMoreFollows; number >>= kGroupBits)
        table.push_back(static_cast<char>((number & (kMoreFollows - 1U)) | kMoreFollows));
    table.push_back(static_cast<char>(number));
}

std::optional<std::uint64_t> takeNumber(std::string_view& table)
{
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < kMaximumBits && !table.empty(); shift += kGroupBits) {
        const auto byte = static_cast<std::uint8_t>(table.front());
        table.remove_prefix(1);
        number |= static_cast<std::uint64_t>(byte & (kMoreFollows - 1U)) << shift;
        if ((byte & kMoreFollows) == 0)
            return number;
    }
    return std::nullopt;
}

} // namespace

void appendRun(std::string& table, ArchivedRun run)
{
    appendNumber(table, run.length);
    appendNumber(table, run.attributesIndex);
}

std::optional<std::vector<ArchivedRun>> runsFromTable(std::string_view table, NSUInteger textLength)
{
    std::vector<ArchivedRun> runs;
    NSUInteger covered = 0;
    while (covered < textLength) {
        const auto length = takeNumber(table);
        const auto index = takeNumber(table);
        if (!length || !index)
            return std::nullopt;
        const auto kept = std::min<NSUInteger>(*length, textLength - covered);
        runs.push_back({kept, *index});
        covered += kept;
    }
    return runs;
}
