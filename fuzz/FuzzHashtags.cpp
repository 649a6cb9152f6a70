// Any text gives tags that stand in it, behind a blank and in order, and that say what stands there.

#include "fuzz/UTF16Input.h"
#include "platform/foundation/NSCharacterSet.h"
#include "strings/Hashtags.h"

#include <algorithm>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void check(const std::u16string& text, TSExtensions::NumericHashtags numeric)
{
    std::vector<NSRange> ranges;
    const auto names = TSExtensions::tagNamesAndRangesFromHashtags(text, &ranges, numeric);
    require(names.size() == ranges.size());
    NSUInteger end = 0;
    for (std::size_t index = 0; index < names.size(); ++index) {
        const auto range = ranges[index];
        require(range.location >= end && NSMaxRange(range) <= text.size());
        end = NSMaxRange(range);
        auto tag = text.substr(range.location, range.length);
        require(tag.size() > 1 && tag.front() == u'#' && tag.find(u'#', 1) == std::u16string::npos);
        std::replace(tag.begin(), tag.end(), u'_', u' ');
        require(tag.substr(1) == names[index]);
        const bool isNumber = names[index].find_first_not_of(u"0123456789") == std::u16string::npos;
        require(!isNumber || numeric == TSExtensions::NumericHashtags::Allowed);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto text = UTF16Input(data, size);
    check(text, TSExtensions::NumericHashtags::Rejected);
    check(text, TSExtensions::NumericHashtags::Allowed);
    return 0;
}
