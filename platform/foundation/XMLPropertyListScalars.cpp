#include "platform/foundation/XMLPropertyListScalars.h"

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::int64_t kSecondsPerDay = 86400;

std::string_view trimmed(std::string_view text)
{
    const auto start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

std::optional<std::uint64_t> wholeNumber(std::string_view digits, int base)
{
    std::uint64_t number = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, status] = std::from_chars(digits.data(), end, number, base);
    return status == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::optional<int> datePart(std::string_view text, std::size_t start, std::size_t length)
{
    const auto number = wholeNumber(text.substr(start, length), 10);
    return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

std::chrono::sys_days referenceDay()
{
    using namespace std::chrono;
    return sys_days(year(2001) / January / 1);
}

} // namespace

std::optional<NSAny> integerFromPropertyListText(std::string_view text)
{
    auto digits = trimmed(text);
    const bool isNegative = digits.starts_with('-');
    if (isNegative || digits.starts_with('+'))
        digits.remove_prefix(1);
    const bool isHexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
    const auto number = isHexadecimal ? wholeNumber(digits.substr(2), 16) : wholeNumber(digits, 10);
    if (!number)
        return std::nullopt;
    constexpr std::uint64_t kTwoTo63 = std::uint64_t{1} << 63U;
    if (isNegative)
        return *number <= kTwoTo63 ? std::optional(NSAny(static_cast<std::int64_t>(~*number + 1)))
                                   : std::nullopt;
    return *number < kTwoTo63 ? NSAny(static_cast<std::int64_t>(*number))
                              : NSAny(static_cast<double>(*number));
}

std::optional<double> realFromPropertyListText(std::string_view text)
{
    auto digits = trimmed(text);
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    double real = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, status] = std::from_chars(digits.data(), end, real);
    if (stop != end || status == std::errc::invalid_argument || digits.empty())
        return std::nullopt;
    if (status
        == std::errc::result_out_of_range) // Too small or too large: from_chars leaves the value alone.
        return digits.find("e-") == std::string_view::npos && digits.find("E-") == std::string_view::npos
            ? std::copysign(std::numeric_limits<double>::infinity(), digits.front() == '-' ? -1.0 : 1.0)
            : 0.0;
    return real;
}

std::string propertyListTextWithReal(double real)
{
    if (std::isnan(real))
        return "nan";
    if (std::isinf(real))
        return real > 0 ? "+infinity" : "-infinity";
    return fmt::format("{}", real);
}

std::optional<NSDate> dateFromPropertyListText(std::string_view text)
{
    using namespace std::chrono;
    const auto moment = trimmed(text);
    constexpr std::string_view kPattern = "0000-00-00T00:00:00Z";
    if (moment.size() != kPattern.size())
        return std::nullopt;
    for (std::size_t index = 0; index < kPattern.size(); ++index) {
        if (kPattern[index] != '0' && moment[index] != kPattern[index])
            return std::nullopt;
    }
    const auto yearNumber = datePart(moment, 0, 4);
    const auto monthNumber = datePart(moment, 5, 2);
    const auto dayNumber = datePart(moment, 8, 2);
    const auto hour = datePart(moment, 11, 2);
    const auto minute = datePart(moment, 14, 2);
    const auto second = datePart(moment, 17, 2);
    if (!yearNumber || !monthNumber || !dayNumber || !hour || !minute || !second)
        return std::nullopt;
    const auto date = year(*yearNumber) / month(static_cast<unsigned>(*monthNumber))
        / day(static_cast<unsigned>(*dayNumber));
    if (!date.ok() || *hour > 24 || *minute > 59 || *second > 60)
        return std::nullopt;
    const auto days = (sys_days(date) - referenceDay()).count();
    return NSDate{static_cast<double>(days * kSecondsPerDay + *hour * 3600 + *minute * 60 + *second)};
}

std::optional<std::string> propertyListTextWithDate(NSDate date)
{
    using namespace std::chrono;
    constexpr double kBound = 4e11; // Some 12,000 years, which the check of the year below narrows.
    const auto seconds = std::floor(date.timeIntervalSinceReferenceDate);
    if (!(std::abs(seconds) < kBound))
        return std::nullopt;
    const auto moment
        = sys_seconds(referenceDay()) + std::chrono::seconds(static_cast<std::int64_t>(seconds));
    const auto dayStart = floor<days>(moment);
    const year_month_day day(dayStart);
    const hh_mm_ss time(moment - dayStart);
    const auto yearNumber = static_cast<int>(day.year());
    if (yearNumber < 0 || yearNumber > 9999)
        return std::nullopt;
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", yearNumber, static_cast<unsigned>(day.month()),
                       static_cast<unsigned>(day.day()), time.hours().count(), time.minutes().count(),
                       time.seconds().count());
}
