#include "platform/foundation/NSStringComparison.h"

#include "platform/foundation/StringFolding.h"
#include "platform/foundation/UserLocale.h"

#include <unicode/coll.h>
#include <unicode/locid.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace {

NSComparisonResult resultOf(int order)
{
    if (order == 0)
        return NSComparisonResult::NSOrderedSame;
    return order < 0 ? NSComparisonResult::NSOrderedAscending : NSComparisonResult::NSOrderedDescending;
}

/// None when the library has no rules at all, as without its data.
std::unique_ptr<const icu::Collator> collatorFor(const std::string& localeIdentifier)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto locale
        = localeIdentifier.empty() ? icu::Locale::getRoot() : icu::Locale(localeIdentifier.c_str());
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(locale, status));
    if (U_SUCCESS(status))
        collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    // Without this, marks in another order than the usual one would make another word.
    if (U_SUCCESS(status))
        collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    return U_SUCCESS(status) ? std::move(collator) : nullptr;
}

NSComparisonResult collated(const icu::Collator* collator, std::u16string_view one, std::u16string_view other)
{
    if (!collator)
        return compare(one, other, NSCaseInsensitiveSearch);
    const auto length = [](std::u16string_view text) {
        return static_cast<int32_t>(std::min<std::size_t>(text.size(), INT32_MAX));
    };
    UErrorCode status = U_ZERO_ERROR;
    const auto result = collator->compare(one.empty() ? u"" : one.data(), length(one),
                                          other.empty() ? u"" : other.data(), length(other), status);
    return U_SUCCESS(status) ? resultOf(result) : compare(one, other, NSCaseInsensitiveSearch);
}

} // namespace

NSComparisonResult compare(std::u16string_view one, std::u16string_view other, NSStringCompareOptions options,
                           std::string_view localeIdentifier)
{
    const StringFolder folder(options, localeIdentifier);
    return resultOf(folder.folded(one).compare(folder.folded(other)));
}

NSComparisonResult localizedStandardCompare(std::u16string_view one, std::u16string_view other)
{
    static const auto collator = collatorFor(userLocaleIdentifier());
    return collated(collator.get(), one, other);
}

NSComparisonResult localizedStandardCompare(std::u16string_view one, std::u16string_view other,
                                            const std::string& localeIdentifier)
{
    return collated(collatorFor(localeIdentifier).get(), one, other);
}
