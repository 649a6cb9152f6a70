#include "strings/FilenameGeneration.h"

#include "platform/foundation/NLTokenizer.h"
#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/NSString.h"
#include "strings/FileNames.h"
#include "strings/StringCleaning.h"

#include <algorithm>
#include <array>

namespace {

// Behind this many units the name ends at the next chance.
constexpr std::size_t kLengthLimit = 128;

NSCharacterSet makeTrimSet(bool includesPeriod)
{
    auto set = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    set.formUnionWithCharacterSet(NSCharacterSet::controlCharacterSet());
    if (includesPeriod)
        set.formUnionWithCharacterSet(NSCharacterSet::characterSetWithCharactersInString(u"."));
    return set;
}

const NSCharacterSet& trimSet(bool includesPeriod)
{
    static const auto withPeriod = makeTrimSet(true);
    static const auto withoutPeriod = makeTrimSet(false);
    return includesPeriod ? withPeriod : withoutPeriod;
}

const NSCharacterSet& nameEnds(bool includesPeriod)
{
    static const auto withPeriod = [] {
        auto set = NSCharacterSet::newlineCharacterSet();
        set.formUnionWithCharacterSet(NSCharacterSet::characterSetWithCharactersInString(u"."));
        return set;
    }();
    return includesPeriod ? withPeriod : NSCharacterSet::newlineCharacterSet();
}

void removeListNumber(std::u16string& text)
{
    static const auto number
        = NSRegularExpression::regularExpressionWithPattern(u"^([1-9]|[1-9][0-9]|[1-9][0-9][0-9])\\. ");
    if (const auto match = number->firstMatchInString(text))
        text.erase(0, match->range().length);
}

/// Each bullet is tried once and in this order, so that of "- • Milk" only the dash goes: a bullet behind
/// another one may be the text's own.
void removeBullets(std::u16string& text)
{
    constexpr std::array<std::u16string_view, 5> kBullets
        = {u"\u2022 ", u"\u2022\u00A0", u"- ", u"* ", u"+ "};
    for (const auto bullet : kBullets) {
        if (hasPrefix(text, bullet))
            text.erase(0, bullet.size());
    }
}

/// Where the name ends that is made of whole words, the last of them beginning before the limit.
std::size_t endOfWords(std::u16string_view text, std::size_t limit, const NSCharacterSet& wordEnds)
{
    const auto words = NSCharacterSet::whitespaceAndNewlineCharacterSet().invertedSet();
    std::size_t position = 0;
    while (position < limit) {
        const auto word = rangeOfCharacterFromSet(text, words, position);
        if (word.location == NSNotFound)
            break;
        // What ends words but is no blank, as control characters, may stand where a word should.
        const auto end = rangeOfCharacterFromSet(text, wordEnds, word.location);
        position = end.location == NSNotFound ? text.size() : std::max(end.location, NSMaxRange(word));
    }
    return position;
}

std::size_t lengthOfName(std::u16string_view text, bool truncatesToPeriod)
{
    const auto limit = std::min(text.size(), kLengthLimit);
    const auto end = rangeOfCharacterFromSet(text.substr(0, limit), nameEnds(truncatesToPeriod));
    if (end.location != NSNotFound)
        return end.location;
    // A sentence is a name as a whole, however long; only sanitising cuts it.
    const auto sentence = sentenceRangeAtIndex(text, 0);
    return sentence.location != NSNotFound ? sentence.length
                                           : endOfWords(text, limit, trimSet(truncatesToPeriod));
}

} // namespace

std::u16string TSExtensions::generateFilename(std::u16string_view text)
{
    return generateFilenameTruncatingToPeriod(text, true);
}

std::u16string TSExtensions::generateFilenameTruncatingToPeriod(std::u16string_view text,
                                                                bool truncatesToPeriod)
{
    auto name = stringWithoutAttachments(text);
    std::replace(name.begin(), name.end(), u'\t', u' ');
    name = stringByTrimmingCharactersInSet(name, trimSet(truncatesToPeriod));
    if (truncatesToPeriod)
        removeListNumber(name);
    removeBullets(name);
    name.resize(lengthOfName(name, truncatesToPeriod));
    return stringSanitizedForFileName(stringByTrimmingWhitespace(name));
}
