#include "platform/foundation/NSCharacterSet.h"

#include "platform/foundation/Unicode.h"

#include <unicode/uniset.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cassert>
#include <utility>

struct NSCharacterSet::Members {
    explicit Members(icu::UnicodeSet characters)
        : set(std::move(characters))
    {
        set.freeze(); // Frozen sets are looked up fast, and safely from many threads.
    }

    icu::UnicodeSet set;
};

NSCharacterSet::NSCharacterSet(std::shared_ptr<const Members> members)
    : m_members(std::move(members))
{
}

NSCharacterSet::NSCharacterSet()
    : NSCharacterSet(std::make_shared<const Members>(icu::UnicodeSet()))
{
}

NSCharacterSet NSCharacterSet::setWithPattern(const char16_t* pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeSet set(icu::UnicodeString(pattern), status);
    assert(U_SUCCESS(status));
    return NSCharacterSet(std::make_shared<const Members>(std::move(set)));
}

const NSCharacterSet& NSCharacterSet::whitespaceCharacterSet()
{
    static const auto set = setWithPattern(u"[\\p{Zs}\\u0009]");
    return set;
}

const NSCharacterSet& NSCharacterSet::newlineCharacterSet()
{
    static const auto set = setWithPattern(u"[\\u000A-\\u000D\\u0085\\u2028\\u2029]");
    return set;
}

const NSCharacterSet& NSCharacterSet::whitespaceAndNewlineCharacterSet()
{
    static const auto set = [] {
        auto both = whitespaceCharacterSet();
        both.formUnionWithCharacterSet(newlineCharacterSet());
        return both;
    }();
    return set;
}

const NSCharacterSet& NSCharacterSet::controlCharacterSet()
{
    static const auto set = setWithPattern(u"[\\p{Cc}\\p{Cf}]");
    return set;
}

const NSCharacterSet& NSCharacterSet::illegalCharacterSet()
{
    static const auto set = setWithPattern(u"[\\p{Cn}]");
    return set;
}

const NSCharacterSet& NSCharacterSet::alphanumericCharacterSet()
{
    static const auto set = setWithPattern(u"[\\p{L}\\p{M}\\p{N}]");
    return set;
}

const NSCharacterSet& NSCharacterSet::decimalDigitCharacterSet()
{
    static const auto set = setWithPattern(u"[\\p{Nd}]");
    return set;
}

const NSCharacterSet& NSCharacterSet::uppercaseLetterCharacterSet()
{
    static const auto set = setWithPattern(u"[\\p{Lu}\\p{Lt}]");
    return set;
}

NSCharacterSet NSCharacterSet::characterSetWithCharactersInString(std::u16string_view characters)
{
    icu::UnicodeSet set;
    for (std::size_t offset = 0; offset < characters.size();)
        set.add(static_cast<UChar32>(nextCodePoint(characters, offset)));
    return NSCharacterSet(std::make_shared<const Members>(std::move(set)));
}

NSCharacterSet NSCharacterSet::characterSetWithRange(NSRange range)
{
    constexpr NSUInteger kCodePointCount = 0x110000;
    if (range.location >= kCodePointCount || range.length == 0)
        return {};
    const auto length = std::min(range.length, kCodePointCount - range.location);
    icu::UnicodeSet set(static_cast<UChar32>(range.location),
                        static_cast<UChar32>(range.location + length - 1));
    return NSCharacterSet(std::make_shared<const Members>(std::move(set)));
}

NSCharacterSet NSCharacterSet::invertedSet() const
{
    icu::UnicodeSet set(0, icu::UnicodeSet::MAX_VALUE);
    set.removeAll(m_members->set);
    return NSCharacterSet(std::make_shared<const Members>(std::move(set)));
}

void NSCharacterSet::formUnionWithCharacterSet(const NSCharacterSet& other)
{
    icu::UnicodeSet set;
    set.addAll(m_members->set).addAll(other.m_members->set);
    m_members = std::make_shared<const Members>(std::move(set));
}

bool NSCharacterSet::longCharacterIsMember(char32_t character) const
{
    return m_members->set.contains(static_cast<UChar32>(character));
}

NSRange rangeOfCharacterFromSet(std::u16string_view text, const NSCharacterSet& set, NSUInteger location)
{
    for (std::size_t offset = location; offset < text.size();) {
        const auto start = offset;
        if (set.longCharacterIsMember(nextCodePoint(text, offset)))
            return {start, offset - start};
    }
    return {NSNotFound, 0};
}

NSRange rangeTrimmedOfCharactersInSet(std::u16string_view text, const NSCharacterSet& set)
{
    std::size_t start = 0;
    for (std::size_t next = 0; next < text.size(); start = next) {
        if (!set.longCharacterIsMember(nextCodePoint(text, next)))
            break;
    }
    std::size_t end = text.size();
    while (end > start) {
        auto previous = previousCodePointStart(text, end);
        const auto before = previous;
        if (!set.longCharacterIsMember(nextCodePoint(text, previous)))
            break;
        end = before;
    }
    return {start, end - start};
}

std::u16string stringByTrimmingCharactersInSet(std::u16string_view text, const NSCharacterSet& set)
{
    const auto kept = rangeTrimmedOfCharactersInSet(text, set);
    return std::u16string(text.substr(kept.location, kept.length));
}
