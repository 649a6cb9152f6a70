#pragma once

#include "platform/foundation/NSRange.h"

#include <memory>
#include <string>
#include <string_view>

/// A set of Unicode code points, surrogates included. A value, cheap to copy; looking up is constant time and
/// safe on any thread.
class NSCharacterSet {
public:
    /// The empty set.
    NSCharacterSet();

    /// The sets that Unicode's general categories make, as the platform defines them.

    /// Zs and the tab.
    [[nodiscard]] static const NSCharacterSet& whitespaceCharacterSet();
    /// U+000A to U+000D, U+0085, U+2028 and U+2029: everything that ends a line.
    [[nodiscard]] static const NSCharacterSet& newlineCharacterSet();
    /// Both of these.
    [[nodiscard]] static const NSCharacterSet& whitespaceAndNewlineCharacterSet();
    /// Cc and Cf.
    [[nodiscard]] static const NSCharacterSet& controlCharacterSet();
    /// What no character is assigned to, and the code points that are none (Cn). Surrogates do not belong to
    /// it.
    [[nodiscard]] static const NSCharacterSet& illegalCharacterSet();
    /// L*, M* and N*.
    [[nodiscard]] static const NSCharacterSet& alphanumericCharacterSet();
    /// Nd.
    [[nodiscard]] static const NSCharacterSet& decimalDigitCharacterSet();
    /// Lu and Lt.
    [[nodiscard]] static const NSCharacterSet& uppercaseLetterCharacterSet();

    [[nodiscard]] static NSCharacterSet characterSetWithCharactersInString(std::u16string_view characters);
    /// `length` code points from `location` on; what lies past the last code point is left out.
    [[nodiscard]] static NSCharacterSet characterSetWithRange(NSRange range);

    /// Every code point that is not in this set.
    [[nodiscard]] NSCharacterSet invertedSet() const;
    void formUnionWithCharacterSet(const NSCharacterSet& other);

    /// Of a code unit. A surrogate is a member only of sets made with surrogates in them.
    [[nodiscard]] bool characterIsMember(char16_t character) const
    {
        return longCharacterIsMember(character);
    }

    [[nodiscard]] bool longCharacterIsMember(char32_t character) const;

private:
    struct Members;

    explicit NSCharacterSet(std::shared_ptr<const Members> members);
    [[nodiscard]] static NSCharacterSet setWithPattern(const char16_t* pattern);

    std::shared_ptr<const Members> m_members;
};

/// Where the first character of `set` stands at or behind `location`: two units long when it takes two, and
/// {NSNotFound, 0} when there is none.
[[nodiscard]] NSRange rangeOfCharacterFromSet(std::u16string_view text, const NSCharacterSet& set,
                                              NSUInteger location = 0);

/// The text without the characters of `set` at its two ends.
[[nodiscard]] std::u16string stringByTrimmingCharactersInSet(std::u16string_view text,
                                                             const NSCharacterSet& set);

/// The place of what stringByTrimmingCharactersInSet keeps.
[[nodiscard]] NSRange rangeTrimmedOfCharactersInSet(std::u16string_view text, const NSCharacterSet& set);
