#include "strings/TimeIntervals.h"

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSRange.h"
#include "platform/foundation/Unicode.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace {

constexpr double kSecondsPerDay = 86400;
constexpr double kSecondsPerHour = 3600;
constexpr double kSecondsPerMinute = 60;

NSInteger wholeNumber(double number)
{
    // The smallest double that a whole number of the platform cannot hold.
    constexpr double kLimit = 9223372036854775808.0;
    if (!(number > 0))
        return 0;
    return number < kLimit ? static_cast<NSInteger>(number) : INT64_MAX;
}

std::u16string formatted(NSInteger count, std::u16string_view singularKey, std::u16string_view pluralKey)
{
    constexpr std::u16string_view kPlaceholder = u"%ld";
    auto text = NSBundle::mainBundle().localizedStringForKey(count == 1 ? singularKey : pluralKey);
    // A translation is not trusted to be a format: what else it holds stays as it is.
    if (const auto place = text.find(kPlaceholder); place != std::u16string::npos)
        text.replace(place, kPlaceholder.size(), UTF16FromUTF8(std::to_string(count)));
    return text;
}

} // namespace

std::u16string TSExtensions::stringForTimeInterval(double seconds)
{
    if (const auto days = wholeNumber(std::floor(seconds / kSecondsPerDay)))
        return formatted(days, u"%ld day remaining", u"%ld days remaining");
    if (const auto hours = wholeNumber(std::floor(seconds / kSecondsPerHour)))
        return formatted(hours, u"%ld hour remaining", u"%ld hours remaining");
    if (const auto minutes = wholeNumber(std::floor(seconds / kSecondsPerMinute)))
        return formatted(minutes, u"%ld minute remaining", u"%ld minutes remaining");
    return formatted(wholeNumber(std::ceil(seconds)), u"%ld second remaining", u"%ld seconds remaining");
}
