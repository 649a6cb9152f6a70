#include "platform/foundation/NSRegularExpression.h"

#include "platform/foundation/NSLog.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace {

// In steps of the matcher, of about a millisecond each.
constexpr int32_t kMostSteps = 2000;
constexpr int32_t kMostStackBytes = 8 << 20;

NSError invalidPattern(int32_t position, const char* why)
{
    // The platform's code for a value that does not have the form it should.
    constexpr int kInvalidValue = 2048;
    return {NSCocoaErrorDomain,
            kInvalidValue,
            {{std::string(NSLocalizedDescriptionKey),
              fmt::format("The pattern is not understood at character {}: {}", position, why)}}};
}

std::vector<NSRange> rangesOfMatch(const icu::RegexMatcher& matcher)
{
    std::vector<NSRange> ranges;
    for (int32_t group = 0; group <= matcher.groupCount(); ++group) {
        UErrorCode status = U_ZERO_ERROR;
        const auto start = matcher.start64(group, status);
        const auto end = matcher.end64(group, status);
        if (U_FAILURE(status) || start < 0)
            ranges.push_back({NSNotFound, 0});
        else
            ranges.push_back({static_cast<NSUInteger>(start), static_cast<NSUInteger>(end - start)});
    }
    return ranges;
}

} // namespace

struct NSRegularExpression::Pattern {
    std::unique_ptr<const icu::RegexPattern> compiled;
};

NSRegularExpression::NSRegularExpression(std::shared_ptr<const Pattern> pattern)
    : m_pattern(std::move(pattern))
{
}

std::optional<NSRegularExpression>
NSRegularExpression::regularExpressionWithPattern(std::u16string_view pattern, NSError* error)
{
    UErrorCode status = U_ZERO_ERROR;
    UParseError place{};
    const auto length = static_cast<int32_t>(std::min<std::size_t>(pattern.size(), INT32_MAX));
    const icu::UnicodeString source(pattern.data(), length);
    auto compiled = std::make_shared<Pattern>();
    compiled->compiled.reset(icu::RegexPattern::compile(source, 0, place, status));
    if (U_FAILURE(status) || !compiled->compiled) {
        setError(error, invalidPattern(place.offset, u_errorName(status)));
        return std::nullopt;
    }
    return NSRegularExpression(std::move(compiled));
}

std::vector<NSTextCheckingResult> NSRegularExpression::matches(std::u16string_view text,
                                                               std::size_t limit) const
{
    UErrorCode status = U_ZERO_ERROR;
    const auto length = static_cast<int32_t>(std::min<std::size_t>(text.size(), INT32_MAX));
    const icu::UnicodeString input(false, length == 0 ? u"" : text.data(), length);
    const std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->compiled->matcher(input, status));
    std::vector<NSTextCheckingResult> found;
    if (U_SUCCESS(status)) {
        matcher->setTimeLimit(kMostSteps, status);
        matcher->setStackLimit(kMostStackBytes, status);
    }
    while (U_SUCCESS(status) && found.size() < limit && matcher->find(status))
        found.push_back({rangesOfMatch(*matcher)});
    if (U_FAILURE(status))
        NSLog("A search by pattern ended early: {}", u_errorName(status));
    return found;
}

std::vector<NSTextCheckingResult> NSRegularExpression::matchesInString(std::u16string_view text) const
{
    return matches(text, SIZE_MAX);
}

std::optional<NSTextCheckingResult> NSRegularExpression::firstMatchInString(std::u16string_view text) const
{
    auto found = matches(text, 1);
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::u16string NSRegularExpression::stringByReplacingMatchesInString(std::u16string_view text,
                                                                     std::u16string_view replacement) const
{
    std::u16string result;
    result.reserve(text.size());
    std::size_t start = 0;
    for (const auto& match : matchesInString(text)) {
        result += text.substr(start, match.range().location - start);
        result += replacement;
        start = NSMaxRange(match.range());
    }
    result += text.substr(start);
    return result;
}
