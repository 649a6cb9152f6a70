#include "platform/text/NSAttributedString.h"

#include "platform/text/AttributedText.h"
#include "platform/text/NSAttributeNames.h"

#include <algorithm>
#include <utility>

namespace {

NSAny valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

/// The longest range around the run at `index`, within `bounds`, whose runs `isSame` accepts.
template <typename Predicate>
NSRange longestRange(const AttributeRuns& runs, std::size_t index, NSRange bounds, Predicate isSame)
{
    auto range = NSIntersectionRange(runs.rangeAt(index), bounds);
    for (auto before = index; before > 0 && range.location > bounds.location; --before) {
        if (!isSame(*runs.attributesAt(before - 1)))
            break;
        const auto start = std::max(runs.rangeAt(before - 1).location, bounds.location);
        range = {start, NSMaxRange(range) - start};
    }
    for (auto after = index + 1; after < runs.count() && NSMaxRange(range) < NSMaxRange(bounds); ++after) {
        if (!isSame(*runs.attributesAt(after)))
            break;
        range.length = std::min(NSMaxRange(runs.rangeAt(after)), NSMaxRange(bounds)) - range.location;
    }
    return range;
}

/// Goes through `range` run by run. `visit` takes the location that the run holds and what is left of the
/// range, calls the visitor, and gives the run's range as it was before the visitor's changes, or none to
/// stop.
template <typename Visit>
void enumerateRuns(const NSAttributedString& text, NSRange range, bool reverse, Visit visit)
{
    auto start = range.location;
    auto end = NSMaxRange(range);
    while (start < end) {
        const auto lengthBefore = text.length();
        const std::optional<NSRange> run = visit(reverse ? end - 1 : start, NSRange{start, end - start});
        if (!run)
            return;
        if (reverse) {
            end = std::min(run->location, text.length());
            continue;
        }
        // What the visitor inserted or removed within its run moves all that lies behind.
        const auto lengthAfter = text.length();
        start = NSMaxRange(*run) + lengthAfter - std::min(lengthBefore, NSMaxRange(*run) + lengthAfter);
        end = end + lengthAfter - std::min(lengthBefore, end + lengthAfter);
        end = std::min(end, lengthAfter);
    }
}

} // namespace

NSAttributedString::NSAttributedString()
    : m_text(std::make_shared<AttributedText>())
{
}

NSAttributedString::NSAttributedString(std::u16string string, NSAttributes attributes)
    : NSAttributedString()
{
    m_text->replace({}, string, m_text->shared(std::move(attributes)));
    (void)m_text->string();
}

NSAttributedString::NSAttributedString(const NSAttributedString& other)
    : m_text(other.m_text)
{
    // A text that is shared is never moved again, so that reading it changes nothing.
    (void)m_text->string();
}

NSAttributedString::NSAttributedString(NSAttributedString&& other) noexcept = default;

NSAttributedString& NSAttributedString::operator=(const NSAttributedString& other)
{
    if (this != &other) {
        m_text = other.m_text;
        (void)m_text->string();
    }
    return *this;
}

NSAttributedString& NSAttributedString::operator=(NSAttributedString&& other) noexcept = default;

NSAttributedString::~NSAttributedString() = default;

NSAttributedString NSAttributedString::attributedStringWithAttachment(const NSAny& attachment,
                                                                      NSAttributes attributes)
{
    attributes.insert_or_assign(std::u16string(NSAttachmentAttributeName), attachment);
    return NSAttributedString(std::u16string(1, NSAttachmentCharacter), std::move(attributes));
}

NSRange NSAttributedString::clamped(NSRange range) const
{
    const auto start = std::min(range.location, length());
    return {start, std::min(range.length, length() - start)};
}

NSUInteger NSAttributedString::length() const
{
    return m_text->length();
}

std::u16string_view NSAttributedString::string() const
{
    return m_text->string();
}

char16_t NSAttributedString::characterAtIndex(NSUInteger index) const
{
    return index < length() ? m_text->characterAt(index) : u'\0';
}

std::u16string NSAttributedString::substringWithRange(NSRange range) const
{
    return m_text->substring(clamped(range));
}

bool NSAttributedString::hasPrefixAtIndex(std::u16string_view prefix, NSUInteger location) const
{
    if (location > length() || prefix.size() > length() - location)
        return false;
    for (std::size_t index = 0; index < prefix.size(); ++index) {
        if (m_text->characterAt(location + index) != prefix[index])
            return false;
    }
    return true;
}

NSUInteger NSAttributedString::runCount() const
{
    return m_text->runs().count();
}

NSAny NSAttributedString::attribute(std::u16string_view name, NSUInteger location,
                                    NSRange* effectiveRange) const
{
    if (location >= length()) {
        if (effectiveRange)
            *effectiveRange = {length(), 0};
        return {};
    }
    const auto& runs = m_text->runs();
    const auto index = runs.indexAt(location);
    if (effectiveRange)
        *effectiveRange = runs.rangeAt(index);
    return valueOf(*runs.attributesAt(index), name);
}

NSAny NSAttributedString::attribute(std::u16string_view name, NSUInteger location,
                                    NSRange* longestEffectiveRange, NSRange range) const
{
    auto value = attribute(name, location, longestEffectiveRange);
    if (!longestEffectiveRange || location >= length())
        return value;
    const auto& runs = m_text->runs();
    *longestEffectiveRange
        = longestRange(runs, runs.indexAt(location), clamped(range),
                       [&](const NSAttributes& attributes) { return valueOf(attributes, name) == value; });
    return value;
}

NSAttributes NSAttributedString::attributesAtIndex(NSUInteger location, NSRange* effectiveRange) const
{
    if (location >= length()) {
        if (effectiveRange)
            *effectiveRange = {length(), 0};
        return {};
    }
    const auto& runs = m_text->runs();
    const auto index = runs.indexAt(location);
    if (effectiveRange)
        *effectiveRange = runs.rangeAt(index);
    return *runs.attributesAt(index);
}

NSAttributes NSAttributedString::attributesAtIndex(NSUInteger location, NSRange* longestEffectiveRange,
                                                   NSRange range) const
{
    auto attributes = attributesAtIndex(location, longestEffectiveRange);
    // Runs differ in value from their neighbours, so that a run is its own longest range.
    if (longestEffectiveRange && location < length())
        *longestEffectiveRange = NSIntersectionRange(*longestEffectiveRange, clamped(range));
    return attributes;
}

void NSAttributedString::enumerateAttribute(std::u16string_view name, NSRange range,
                                            NSEnumerationOptions options,
                                            const AttributeVisitor& visitor) const
{
    enumerateRuns(*this, clamped(range), options.reverse,
                  [&](NSUInteger location, NSRange rest) -> std::optional<NSRange> {
                      NSRange run;
                      const auto value = options.longestEffectiveRangeNotRequired
                          ? attribute(name, location, &run)
                          : attribute(name, location, &run, rest);
                      run = NSIntersectionRange(run, rest);
                      bool stop = false;
                      visitor(value, run, stop);
                      return stop ? std::nullopt : std::optional(run);
                  });
}

void NSAttributedString::enumerateAttribute(std::u16string_view name, const AttributeVisitor& visitor) const
{
    enumerateAttribute(name, {0, length()}, {}, visitor);
}

void NSAttributedString::enumerateAttributesInRange(NSRange range, NSEnumerationOptions options,
                                                    const AttributesVisitor& visitor) const
{
    enumerateRuns(*this, clamped(range), options.reverse,
                  [&](NSUInteger location, NSRange rest) -> std::optional<NSRange> {
                      const auto& runs = m_text->runs();
                      const auto index = runs.indexAt(location);
                      const auto attributes = runs.attributesAt(index);
                      const auto run = NSIntersectionRange(runs.rangeAt(index), rest);
                      bool stop = false;
                      visitor(*attributes, run, stop);
                      return stop ? std::nullopt : std::optional(run);
                  });
}

NSAttributedString NSAttributedString::attributedSubstringFromRange(NSRange range) const
{
    NSAttributedString part;
    part.m_text->replace({}, *m_text, clamped(range));
    return part;
}

bool NSAttributedString::isEqualToAttributedString(const NSAttributedString& other) const
{
    if (m_text == other.m_text)
        return true;
    if (length() != other.length() || runCount() != other.runCount() || string() != other.string())
        return false;
    const auto& runs = m_text->runs();
    const auto& otherRuns = other.m_text->runs();
    for (std::size_t index = 0; index < runs.count(); ++index) {
        const auto& attributes = runs.attributesAt(index);
        const auto& otherAttributes = otherRuns.attributesAt(index);
        if (runs.rangeAt(index) != otherRuns.rangeAt(index)
            || (attributes != otherAttributes && *attributes != *otherAttributes))
            return false;
    }
    return true;
}
