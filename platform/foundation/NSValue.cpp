#include "platform/foundation/NSValue.h"

#include "platform/foundation/NSCoder.h"

#include <fmt/format.h>

#include <utility>

namespace {

constexpr std::string_view kSpecialKey = "NS.special";
constexpr std::string_view kPointKey = "NS.pointval";
constexpr std::string_view kSizeKey = "NS.sizeval";
constexpr std::string_view kRectKey = "NS.rectval";
constexpr std::string_view kLocationKey = "NS.rangeval.location";
constexpr std::string_view kLengthKey = "NS.rangeval.length";
constexpr std::string_view kTypeKey = "$0";
constexpr std::string_view kTypedValueKey = "$1";
constexpr std::string_view kArrayCountKey = "NS.count";
constexpr std::string_view kArrayElementSizeKey = "NS.size";
constexpr std::string_view kArrayElementTypeKey = "NS.type";

/// The numbers under NS.special.
enum class Special : std::int64_t { None = 0, Point = 1, Size = 2, Rect = 3, Range = 4, EdgeInsets = 12 };

void fail(NSCoder& coder, std::string_view reason)
{
    coder.failWithError(NSError::errorWithCode(NSCocoaError::CoderReadCorrupt, reason));
}

NSAny valueWith(NSValue::Content content)
{
    return std::make_shared<const NSValue>(std::move(content));
}

NSAny decodeRange(NSCoder& coder)
{
    const auto location = coder.decodeIntegerForKey(kLocationKey);
    const auto length = coder.decodeIntegerForKey(kLengthKey);
    if (location >= 0 && length >= 0)
        return valueWith(NSRange{static_cast<NSUInteger>(location), static_cast<NSUInteger>(length)});
    fail(coder, "A range of the archive is negative.");
    return nullptr;
}

NSAny decodeEdgeInsets(NSCoder& coder)
{
    return valueWith(NSEdgeInsets{
        coder.decodeDoubleForKey("NS.edgeval.top"), coder.decodeDoubleForKey("NS.edgeval.left"),
        coder.decodeDoubleForKey("NS.edgeval.bottom"), coder.decodeDoubleForKey("NS.edgeval.right")});
}

NSAny decodeTyped(NSCoder& coder)
{
    auto type = coder.decodeStringForKey(kTypeKey);
    auto value = coder.decodeObjectOfClasses({&NSNumberClass, &NSKeyedCoderOldStyleArray::classObject()},
                                             kTypedValueKey);
    return type && value ? valueWith(NSValue::Typed{std::move(*type), std::move(value)}) : NSAny();
}

/// A kind that is not known here is left out, as an object of an unknown class is.
NSAny decodeValue(NSCoder& coder)
{
    const auto textUnder
        = [&coder](std::string_view key) { return coder.decodeStringForKey(key).value_or(std::u16string()); };
    switch (static_cast<Special>(coder.decodeIntegerForKey(kSpecialKey))) {
    case Special::Point:
        return valueWith(NSPointFromString(textUnder(kPointKey)));
    case Special::Size:
        return valueWith(NSSizeFromString(textUnder(kSizeKey)));
    case Special::Rect:
        return valueWith(NSRectFromString(textUnder(kRectKey)));
    case Special::Range:
        return decodeRange(coder);
    case Special::EdgeInsets:
        return decodeEdgeInsets(coder);
    case Special::None:
        return decodeTyped(coder);
    }
    return nullptr;
}

std::string elementKey(std::size_t index)
{
    return fmt::format("${}", index);
}

NSAny decodeOldStyleArray(NSCoder& coder)
{
    const auto count = coder.decodeIntegerForKey(kArrayCountKey);
    NSAny::Array elements;
    for (std::int64_t index = 0; index < count; ++index) {
        elements.push_back(
            coder.decodeObjectOfClass(NSNumberClass, elementKey(static_cast<std::size_t>(index))));
        if (elements.back())
            continue;
        fail(coder, "An array of numbers in the archive is shorter than it says.");
        return nullptr;
    }
    return std::make_shared<const NSKeyedCoderOldStyleArray>(coder.decodeIntegerForKey(kArrayElementTypeKey),
                                                             coder.decodeIntegerForKey(kArrayElementSizeKey),
                                                             std::move(elements));
}

/// Writes each kind of content under the keys it has.
class ContentEncoder {
public:
    explicit ContentEncoder(NSCoder& coder)
        : m_coder(coder)
    {
    }

    void operator()(NSPoint point) const { encode(Special::Point, NSStringFromPoint(point), kPointKey); }

    void operator()(NSSize size) const { encode(Special::Size, NSStringFromSize(size), kSizeKey); }

    void operator()(NSRect rect) const { encode(Special::Rect, NSStringFromRect(rect), kRectKey); }

    void operator()(NSRange range) const
    {
        m_coder.encodeObject(range.location, kLocationKey);
        m_coder.encodeObject(range.length, kLengthKey);
        m_coder.encodeInteger(static_cast<std::int64_t>(Special::Range), kSpecialKey);
    }

    void operator()(NSEdgeInsets insets) const
    {
        m_coder.encodeDouble(insets.top, "NS.edgeval.top");
        m_coder.encodeDouble(insets.left, "NS.edgeval.left");
        m_coder.encodeDouble(insets.bottom, "NS.edgeval.bottom");
        m_coder.encodeDouble(insets.right, "NS.edgeval.right");
        m_coder.encodeInteger(static_cast<std::int64_t>(Special::EdgeInsets), kSpecialKey);
    }

    void operator()(const NSValue::Typed& typed) const
    {
        m_coder.encodeObject(typed.objCType, kTypeKey);
        m_coder.encodeObject(typed.value, kTypedValueKey);
    }

private:
    void encode(Special special, const std::u16string& text, std::string_view key) const
    {
        m_coder.encodeObject(text, key);
        m_coder.encodeInteger(static_cast<std::int64_t>(special), kSpecialKey);
    }

    NSCoder& m_coder;
};

} // namespace

NSKeyedCoderOldStyleArray::NSKeyedCoderOldStyleArray(std::int64_t elementType, std::int64_t elementSize,
                                                     NSAny::Array elements)
    : m_elementType(elementType)
    , m_elementSize(elementSize)
    , m_elements(std::move(elements))
{
}

const NSClass& NSKeyedCoderOldStyleArray::classObject()
{
    static const NSClass object{"_NSKeyedCoderOldStyleArray", &NSObjectClass, decodeOldStyleArray};
    return object;
}

bool NSKeyedCoderOldStyleArray::isEqual(const NSObject& other) const
{
    const auto* array = dynamic_cast<const NSKeyedCoderOldStyleArray*>(&other);
    return array && array->m_elementType == m_elementType && array->m_elementSize == m_elementSize
        && array->m_elements == m_elements;
}

/// The elements stand in the object itself, not as objects of their own.
void NSKeyedCoderOldStyleArray::encodeWithCoder(NSCoder& coder) const
{
    for (std::size_t index = 0; index < m_elements.size(); ++index) {
        if (m_elements[index].isReal())
            coder.encodeDouble(m_elements[index].doubleValue(), elementKey(index));
        else
            coder.encodeInteger(m_elements[index].integerValue(), elementKey(index));
    }
    coder.encodeInteger(static_cast<std::int64_t>(m_elements.size()), kArrayCountKey);
    coder.encodeInteger(m_elementSize, kArrayElementSizeKey);
    coder.encodeInteger(m_elementType, kArrayElementTypeKey);
}

const NSClass& NSValue::classObject()
{
    static const NSClass object{"NSValue", &NSObjectClass, decodeValue};
    return object;
}

bool NSValue::isEqual(const NSObject& other) const
{
    const auto* value = dynamic_cast<const NSValue*>(&other);
    return value && value->m_content == m_content;
}

void NSValue::encodeWithCoder(NSCoder& coder) const
{
    std::visit(ContentEncoder(coder), m_content);
}
