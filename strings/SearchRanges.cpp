#include "strings/SearchRanges.h"

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSString.h"
#include "platform/foundation/NSStringSearch.h"
#include "platform/foundation/UserLocale.h"

std::vector<NSRange> TSExtensions::localizedStandardRangesOfString(std::u16string_view text,
                                                                   std::u16string_view term)
{
    const NSStringSearch search(text, term, NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch,
                                userLocaleIdentifier());
    std::vector<NSRange> ranges;
    for (auto found = search.rangeFrom(0); found.location != NSNotFound;
         found = search.rangeFrom(NSMaxRange(found))) {
        ranges.push_back(found);
        if (NSMaxRange(found) + term.size() >= text.size())
            break;
    }
    return ranges;
}

bool TSExtensions::hasPrefixIgnoringWhitespace(std::u16string_view text, std::u16string_view prefix)
{
    if (hasPrefix(text, prefix))
        return true;
    if (rangeOfString(text, prefix).location == NSNotFound)
        return false;
    return hasPrefix(stringByTrimmingCharactersInSet(text, NSCharacterSet::whitespaceCharacterSet()), prefix);
}
