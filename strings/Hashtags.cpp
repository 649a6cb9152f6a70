#include "strings/Hashtags.h"

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSUserDefaults.h"

#include <algorithm>

namespace {

bool isBlank(char16_t unit)
{
    return NSCharacterSet::whitespaceAndNewlineCharacterSet().characterIsMember(unit);
}

const NSCharacterSet& separators()
{
    static const auto set = [] {
        auto allowed = NSCharacterSet::alphanumericCharacterSet();
        allowed.formUnionWithCharacterSet(NSCharacterSet::characterSetWithCharactersInString(u"_"));
        return allowed.invertedSet();
    }();
    return set;
}

/// The part of the text from `start` to the next blank: what "#\S+" matches when a "#" stands there.
std::u16string_view wordAt(std::u16string_view text, std::size_t start)
{
    const auto* const begin = text.begin() + static_cast<std::ptrdiff_t>(start);
    const auto* const end = std::find_if(begin, text.end(), isBlank);
    return text.substr(start, static_cast<std::size_t>(end - begin));
}

class Tags {
public:
    explicit Tags(TSExtensions::NumericHashtags numeric)
        : m_numeric(numeric)
    {
    }

    /// Takes the tags of a word that begins with "#" and stands at `location`. Every "#" begins one.
    void takeWord(std::u16string_view word, NSUInteger location)
    {
        for (std::size_t start = 0; start < word.size();) {
            const auto end = std::min(word.find(u'#', start + 1), word.size());
            takeComponent(word.substr(start + 1, end - start - 1), location + start);
            start = end;
        }
    }

    std::vector<std::u16string> names;
    std::vector<NSRange> ranges;

private:
    void takeComponent(std::u16string_view component, NSUInteger location)
    {
        component = component.substr(0, rangeOfCharacterFromSet(component, separators()).location);
        const bool isNumber = component.find_first_not_of(u"0123456789") == std::u16string_view::npos;
        if (component.empty() || (isNumber && m_numeric == TSExtensions::NumericHashtags::Rejected))
            return;
        std::u16string name(component);
        std::replace(name.begin(), name.end(), u'_', u' ');
        names.push_back(std::move(name));
        ranges.push_back({location, component.size() + 1});
    }

    TSExtensions::NumericHashtags m_numeric;
};

} // namespace

TSExtensions::NumericHashtags TSExtensions::numericHashtags()
{
    return NSUserDefaults::standardUserDefaults().boolForKey(u"CVLAllowNumericHashtags")
        ? NumericHashtags::Allowed
        : NumericHashtags::Rejected;
}

std::vector<std::u16string> TSExtensions::tagNamesAndRangesFromHashtags(std::u16string_view text,
                                                                        std::vector<NSRange>* ranges,
                                                                        NumericHashtags numeric)
{
    Tags tags(numeric);
    for (auto start = text.find(u'#'); start != std::u16string_view::npos;) {
        const auto word = wordAt(text, start);
        if (word.size() > 1 && (start == 0 || isBlank(text[start - 1])))
            tags.takeWord(word, start);
        start = text.find(u'#', start + word.size());
    }
    if (ranges)
        *ranges = std::move(tags.ranges);
    return std::move(tags.names);
}

std::set<std::u16string> TSExtensions::uniqueTagNamesFromHashtags(std::u16string_view text,
                                                                  NumericHashtags numeric)
{
    auto names = tagNamesAndRangesFromHashtags(text, nullptr, numeric);
    return {std::make_move_iterator(names.begin()), std::make_move_iterator(names.end())};
}
