#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSRange.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class AttributedText;

/// The attributes of a piece of text by their names (NSAttributeNames.h).
using NSAttributes = NSAny::Dictionary;

/// How attributes are visited.
struct NSEnumerationOptions {
    /// From the end of the range to its start.
    bool reverse = false;
    /// Runs as they are stored: neighbours may have equal values. Otherwise each run is as long as it can be.
    bool longestEffectiveRangeNotRequired = false;
};

/// Text with attributes, as a value: copies share what they hold. All locations and lengths count UTF-16 code
/// units, and every unit has attributes, possibly none. Ranges must lie within the text; a range that does
/// not is cut to it.
///
/// Finding the run at a location costs a binary search. One text belongs to one thread at a time; copies are
/// independent. What was moved from may only be assigned to or destroyed.
class NSAttributedString {
public:
    NSAttributedString();
    explicit NSAttributedString(std::u16string string, NSAttributes attributes = {});
    NSAttributedString(const NSAttributedString& other);
    NSAttributedString(NSAttributedString&& other) noexcept;
    NSAttributedString& operator=(const NSAttributedString& other);
    NSAttributedString& operator=(NSAttributedString&& other) noexcept;
    ~NSAttributedString();

    /// One character, U+FFFC, that carries `attachment` (an object of NSTextAttachment or of a class derived
    /// from it) and `attributes`.
    [[nodiscard]] static NSAttributedString attributedStringWithAttachment(const NSAny& attachment,
                                                                           NSAttributes attributes = {});

    [[nodiscard]] NSUInteger length() const;

    /// All characters. Valid until the text is changed. After a change in the middle this costs a copy of the
    /// text once; between changes in a loop ask for characters and substrings instead.
    [[nodiscard]] std::u16string_view string() const;
    [[nodiscard]] char16_t characterAtIndex(NSUInteger index) const;
    [[nodiscard]] std::u16string substringWithRange(NSRange range) const;
    /// Whether the characters from `location` on begin with `prefix`.
    [[nodiscard]] bool hasPrefixAtIndex(std::u16string_view prefix, NSUInteger location) const;

    /// The line that holds `location`, or that ends there when the location is the text's end: from behind
    /// the line end before it to behind its own. Line ends are "\n", "\r", "\r\n", U+0085, U+2028 and U+2029.
    [[nodiscard]] NSRange lineRangeAtIndex(NSUInteger location) const;
    /// The line's range without its line end.
    [[nodiscard]] NSRange lineContentRangeAtIndex(NSUInteger location) const;
    /// As lineRangeAtIndex, for paragraphs: U+2028 and U+0085 do not end one.
    [[nodiscard]] NSRange paragraphRangeAtIndex(NSUInteger location) const;
    /// The paragraphs that `range` touches.
    [[nodiscard]] NSRange paragraphRangeForRange(NSRange range) const;

    /// The value of an attribute, nil when the unit has none; none has any at or behind the end.
    /// `effectiveRange` gets a range around the location over which the value is the same, not always the
    /// longest.
    [[nodiscard]] NSAny attribute(std::u16string_view name, NSUInteger location,
                                  NSRange* effectiveRange = nullptr) const;
    /// The same, with the longest such range within `range`.
    [[nodiscard]] NSAny attribute(std::u16string_view name, NSUInteger location,
                                  NSRange* longestEffectiveRange, NSRange range) const;
    [[nodiscard]] NSAttributes attributesAtIndex(NSUInteger location,
                                                 NSRange* effectiveRange = nullptr) const;
    [[nodiscard]] NSAttributes attributesAtIndex(NSUInteger location, NSRange* longestEffectiveRange,
                                                 NSRange range) const;

    using AttributeVisitor = std::function<void(const NSAny& value, NSRange range, bool& stop)>;
    using AttributesVisitor = std::function<void(const NSAttributes& attributes, NSRange range, bool& stop)>;

    /// Visits the runs of one attribute within `range`, those without it (value nil) included. The visitor
    /// may change the text within the range it was given, its length too, when the text is mutable: the visit
    /// goes on behind (in reverse: before) what stands there then.
    void enumerateAttribute(std::u16string_view name, NSRange range, NSEnumerationOptions options,
                            const AttributeVisitor& visitor) const;
    /// The same over the whole text, forwards.
    void enumerateAttribute(std::u16string_view name, const AttributeVisitor& visitor) const;
    /// Visits the runs of all attributes together, by the same rules.
    void enumerateAttributesInRange(NSRange range, NSEnumerationOptions options,
                                    const AttributesVisitor& visitor) const;

    [[nodiscard]] NSAttributedString attributedSubstringFromRange(NSRange range) const;

    /// Whether both have the same characters and, unit for unit, equal attributes, however they are stored.
    [[nodiscard]] bool isEqualToAttributedString(const NSAttributedString& other) const;

    friend bool operator==(const NSAttributedString& one, const NSAttributedString& other)
    {
        return one.isEqualToAttributedString(other);
    }

    /// The number of runs as they are stored.
    [[nodiscard]] NSUInteger runCount() const;

protected:
    friend class NSAttributedStringBuilder;
    friend class NSAttributedStringObject;

    [[nodiscard]] NSRange clamped(NSRange range) const;

    [[nodiscard]] static const AttributedText& textOf(const NSAttributedString& string)
    {
        return *string.m_text;
    }

    /// Shared between copies; changed only while this text is its one owner.
    std::shared_ptr<AttributedText> m_text;
};

/// Text whose characters and attributes can be changed in place. Where runs come to be equal neighbours they
/// become one. A pass over the text that edits as it goes, in either direction, costs time in proportion to
/// the text.
class NSMutableAttributedString : public NSAttributedString {
public:
    using NSAttributedString::NSAttributedString;
    NSMutableAttributedString() = default;
    explicit NSMutableAttributedString(NSAttributedString text);

    /// The text as it is now, as a value that cannot be changed.
    [[nodiscard]] NSAttributedString copy() const { return static_cast<const NSAttributedString&>(*this); }

    /// The new characters take the attributes of the first character replaced; with an empty range those of
    /// the character before it, at the start those of the first character.
    void replaceCharactersInRange(NSRange range, std::u16string_view string);
    void replaceCharactersInRange(NSRange range, const NSAttributedString& text);
    void insertAttributedString(const NSAttributedString& text, NSUInteger location);
    void appendAttributedString(const NSAttributedString& text);
    void deleteCharactersInRange(NSRange range);
    void setAttributedString(const NSAttributedString& text);

    /// A nil value removes the attribute.
    void addAttribute(std::u16string_view name, const NSAny& value, NSRange range);
    void addAttributes(const NSAttributes& attributes, NSRange range);
    /// Replaces all attributes of the range.
    void setAttributes(const NSAttributes& attributes, NSRange range);
    void removeAttribute(std::u16string_view name, NSRange range);

    /// Edits between the two are one batch: when the outermost batch ends, `fixAttachmentAttributeInRange`
    /// runs over what they touched, from the first edit to the last, once. Paragraph styles stay as they were
    /// set, and without a batch nothing is fixed by itself.
    void beginEditing();
    void endEditing();

    /// Brings the attributes of a range in order: an attachment stays only on an attachment character
    /// (U+FFFC), and every paragraph has the paragraph style of its first character.
    void fixAttributesInRange(NSRange range);
    /// Removes attachments from every other character than the attachment character.
    void fixAttachmentAttributeInRange(NSRange range);
    /// Gives every paragraph that the range touches the paragraph style of its first character.
    void fixParagraphStyleAttributeInRange(NSRange range);

private:
    AttributedText& mutableText();
    void noteEdit(NSRange range, NSUInteger newLength);

    NSUInteger m_editingDepth = 0;
    std::optional<NSRange> m_editedRange;
};
