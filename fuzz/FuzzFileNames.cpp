// Any text gives a safe file name, and the searching, cleaning and comparing beneath it hold together.

#include "fuzz/UTF16Input.h"
#include "platform/foundation/NSString.h"
#include "platform/foundation/NSStringSearch.h"
#include "strings/FileNames.h"
#include "strings/FilenameGeneration.h"
#include "strings/SearchRanges.h"
#include "strings/StringCleaning.h"

#include <cstdlib>

using namespace TSExtensions;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void requireSafe(const std::u16string& name)
{
    constexpr std::size_t kMaxLength = 255;
    require(name.size() <= kMaxLength && !name.starts_with(u'.'));
    require(name.find_first_of(u"/:~\t\n\r\v\f\u0085\u2028\u2029") == std::u16string::npos);
}

void checkComparison(const std::u16string& text)
{
    const auto half = text.size() / 2;
    const auto front = text.substr(0, half);
    const auto back = text.substr(half);
    require(isEqualToFilename(text, text));
    require(isEqualToFilename(front, back) == isEqualToFilename(back, front));
    for (const auto range : localizedStandardRangesOfString(front, back))
        require(NSMaxRange(range) <= front.size());
    if (hasPrefix(text, front))
        require(rangeOfString(text, front).location == 0);
    const auto last = rangeOfString(text, back, NSBackwardsSearch);
    if (hasSuffix(text, back))
        require(last.location != NSNotFound && NSMaxRange(last) == text.size());
}

void checkCleaning(const std::u16string& text)
{
    const auto flat = stringByRemovingNewlinesAndTabs(text);
    require(flat == stringByRemovingNewlinesAndTabs(flat) && flat.find(u"  ") == std::u16string::npos);
    require(stringByStandardizingNewlines(text).find(u'\r') == std::u16string::npos);
    const auto encoded = percentEncodedURLString(text);
    require(encoded == percentEncodedURLString(encoded));
    const auto readable = stringByRemovingControlAndIllegalCharacters(text);
    require(readable == stringByRemovingControlAndIllegalCharacters(readable));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto text = UTF16Input(data, size);
    requireSafe(stringSanitizedForFileName(text));
    requireSafe(generateFilenameTruncatingToPeriod(text, true));
    requireSafe(generateFilenameTruncatingToPeriod(text, false));
    checkComparison(text);
    checkCleaning(text);
    return 0;
}
