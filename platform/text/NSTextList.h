#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSRange.h"

#include <memory>
#include <string>
#include <string_view>

/// Marker formats. A format is one of them, or text around and between them: u"({decimal})".
inline constexpr std::u16string_view NSTextListMarkerBox = u"{box}";
inline constexpr std::u16string_view NSTextListMarkerCheck = u"{check}";
inline constexpr std::u16string_view NSTextListMarkerCircle = u"{circle}";
inline constexpr std::u16string_view NSTextListMarkerDiamond = u"{diamond}";
inline constexpr std::u16string_view NSTextListMarkerDisc = u"{disc}";
inline constexpr std::u16string_view NSTextListMarkerHyphen = u"{hyphen}";
inline constexpr std::u16string_view NSTextListMarkerSquare = u"{square}";
inline constexpr std::u16string_view NSTextListMarkerDecimal = u"{decimal}";
inline constexpr std::u16string_view NSTextListMarkerOctal = u"{octal}";
inline constexpr std::u16string_view NSTextListMarkerLowercaseHexadecimal = u"{lower-hexadecimal}";
inline constexpr std::u16string_view NSTextListMarkerUppercaseHexadecimal = u"{upper-hexadecimal}";
inline constexpr std::u16string_view NSTextListMarkerLowercaseAlpha = u"{lower-alpha}";
inline constexpr std::u16string_view NSTextListMarkerUppercaseAlpha = u"{upper-alpha}";
inline constexpr std::u16string_view NSTextListMarkerLowercaseLatin = u"{lower-latin}";
inline constexpr std::u16string_view NSTextListMarkerUppercaseLatin = u"{upper-latin}";
inline constexpr std::u16string_view NSTextListMarkerLowercaseRoman = u"{lower-roman}";
inline constexpr std::u16string_view NSTextListMarkerUppercaseRoman = u"{upper-roman}";
/// Comes from HTML lists without markers.
inline constexpr std::u16string_view NSTextListMarkerNone = u"{none}";

/// Options of a list, as a set of bits.
inline constexpr NSUInteger NSTextListPrependEnclosingMarker = 1;

/// One list that paragraphs belong to, by having it in their styles. Immutable, and an identity: paragraphs
/// are of the same list only when they share one object, however alike two lists are.
class NSTextList final : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSTextList>;

    explicit NSTextList(std::u16string_view markerFormat, NSUInteger options = 0,
                        NSInteger startingItemNumber = 1);

    [[nodiscard]] const std::u16string& markerFormat() const { return m_markerFormat; }

    [[nodiscard]] NSUInteger listOptions() const { return m_options; }

    [[nodiscard]] NSInteger startingItemNumber() const { return m_startingItemNumber; }

    /// The marker format with its tokens filled in for an item. What stands around the tokens stays, and so
    /// do braces with anything else in them. `itemNumber` is taken as it is, whatever the starting number.
    ///
    /// Letters count a to z, aa, ab and on; Roman numerals go to 3999. Where letters or Roman numerals have
    /// no form, for a number below 1 or too large, the number is decimal. Negative octal and hexadecimal
    /// numbers have a minus sign.
    [[nodiscard]] std::u16string markerForItemNumber(NSInteger itemNumber) const;

    /// Whether texts are expected to hold the markers of their lists as characters. True unless a program
    /// says otherwise. May be used from any thread.
    [[nodiscard]] static bool includesTextListMarkers();
    static void setIncludesTextListMarkers(bool includes);

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    std::u16string m_markerFormat;
    NSUInteger m_options;
    NSInteger m_startingItemNumber;
};
