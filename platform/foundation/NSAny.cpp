#include "platform/foundation/NSAny.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/// What two kinds of values share is compared without looking inside.
template <typename Shared>
bool equalShared(const std::shared_ptr<Shared>& one, const std::shared_ptr<Shared>& other)
{
    return one == other || *one == *other;
}

std::size_t combine(std::size_t seed, std::size_t hash)
{
    return seed ^ (hash + 0x9e3779b97f4a7c15U + (seed << 6U) + (seed >> 2U));
}

bool isBlank(char16_t unit)
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

/// The ASCII beginning of a text behind its blanks: all that a number can stand in.
std::string numberText(std::u16string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    if (!text.empty() && text.front() == u'+')
        text.remove_prefix(1);
    std::string number;
    for (const auto unit : text) {
        if (unit > 0x7f)
            break;
        number.push_back(static_cast<char>(unit));
    }
    return number;
}

std::int64_t integerFromText(std::u16string_view text)
{
    const auto number = numberText(text);
    std::int64_t value = 0;
    const auto [end, status] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (status == std::errc::result_out_of_range)
        return number.starts_with('-') ? std::numeric_limits<std::int64_t>::min()
                                       : std::numeric_limits<std::int64_t>::max();
    return value;
}

double doubleFromText(std::u16string_view text)
{
    const auto number = numberText(text);
    double value = 0;
    const auto [end, status] = std::from_chars(number.data(), number.data() + number.size(), value);
    return status == std::errc() ? value : 0;
}

std::int64_t integerFromDouble(double value)
{
    constexpr double kBound = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= kBound)
        return std::numeric_limits<std::int64_t>::max();
    if (value < -kBound)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

bool boolFromText(std::u16string_view text)
{
    std::size_t position = 0;
    while (position < text.size() && isBlank(text[position]))
        ++position;
    if (position < text.size() && (text[position] == u'+' || text[position] == u'-'))
        ++position;
    while (position < text.size() && text[position] == u'0')
        ++position;
    return position < text.size()
        && std::u16string_view(u"YyTt123456789").find(text[position]) != std::u16string_view::npos;
}

} // namespace

NSAny::NSAny(std::u16string text)
    : m_value(std::make_shared<const std::u16string>(std::move(text)))
{
}

NSAny::NSAny(NSData data)
    : m_value(std::make_shared<const NSData>(std::move(data)))
{
}

NSAny::NSAny(NSURL url)
    : m_value(std::make_shared<const NSURL>(std::move(url)))
{
}

NSAny::NSAny(Array array)
    : m_value(std::make_shared<const Array>(std::move(array)))
{
}

NSAny::NSAny(Dictionary dictionary)
    : m_value(std::make_shared<const Dictionary>(std::move(dictionary)))
{
}

NSAny::NSAny(std::shared_ptr<const Dictionary> dictionary)
{
    if (dictionary)
        m_value = std::move(dictionary);
}

const std::u16string* NSAny::string() const
{
    const auto* text = std::get_if<std::shared_ptr<const std::u16string>>(&m_value);
    return text ? text->get() : nullptr;
}

const NSData* NSAny::data() const
{
    const auto* data = std::get_if<std::shared_ptr<const NSData>>(&m_value);
    return data ? data->get() : nullptr;
}

const NSURL* NSAny::url() const
{
    const auto* url = std::get_if<std::shared_ptr<const NSURL>>(&m_value);
    return url ? url->get() : nullptr;
}

const NSAny::Array* NSAny::array() const
{
    const auto* array = std::get_if<std::shared_ptr<const Array>>(&m_value);
    return array ? array->get() : nullptr;
}

const NSAny::Dictionary* NSAny::dictionary() const
{
    const auto* dictionary = std::get_if<std::shared_ptr<const Dictionary>>(&m_value);
    return dictionary ? dictionary->get() : nullptr;
}

std::shared_ptr<const NSAny::Dictionary> NSAny::sharedDictionary() const
{
    const auto* dictionary = std::get_if<std::shared_ptr<const Dictionary>>(&m_value);
    return dictionary ? *dictionary : nullptr;
}

std::optional<NSDate> NSAny::date() const
{
    const auto* date = std::get_if<NSDate>(&m_value);
    return date ? std::optional(*date) : std::nullopt;
}

const NSObject* NSAny::anyObject() const
{
    if (const auto* value = std::get_if<std::shared_ptr<const NSObject>>(&m_value))
        return value->get();
    const auto* object = std::get_if<std::shared_ptr<NSObject>>(&m_value);
    return object ? object->get() : nullptr;
}

std::int64_t NSAny::integerValue() const
{
    if (const auto* flag = std::get_if<bool>(&m_value))
        return *flag ? 1 : 0;
    if (const auto* integer = std::get_if<std::int64_t>(&m_value))
        return *integer;
    if (const auto* real = std::get_if<double>(&m_value))
        return integerFromDouble(*real);
    return string() ? integerFromText(*string()) : 0;
}

double NSAny::doubleValue() const
{
    if (const auto* real = std::get_if<double>(&m_value))
        return *real;
    if (string())
        return doubleFromText(*string());
    return static_cast<double>(integerValue());
}

bool NSAny::boolValue() const
{
    if (const auto* real = std::get_if<double>(&m_value))
        return *real != 0;
    if (string())
        return boolFromText(*string());
    return integerValue() != 0;
}

const void* NSAny::identity() const
{
    return std::visit(
        [](const auto& value) -> const void* {
            if constexpr (requires { value.get(); })
                return value.get();
            else
                return nullptr;
        },
        m_value);
}

std::size_t NSAny::hash() const
{
    if (isNumber())
        return std::hash<double>()(doubleValue());
    if (const auto* text = string())
        return std::hash<std::u16string>()(*text);
    if (const auto* bytes = data())
        return std::hash<std::string>()(bytes->bytes);
    if (const auto moment = date())
        return std::hash<double>()(moment->timeIntervalSinceReferenceDate);
    if (const auto* address = url())
        return std::hash<std::string>()(address->absoluteString());
    if (const auto* object = anyObject())
        return object->hash();
    // Collections by their size and their direct keys only: deep ones would cost more than the rare
    // collision.
    if (const auto* elements = array())
        return combine(1, elements->size());
    std::size_t hash = 2;
    if (const auto* entries = dictionary()) {
        for (const auto& [key, value] : *entries)
            hash = combine(hash, std::hash<std::u16string>()(key));
    }
    return hash;
}

bool operator==(const NSAny& one, const NSAny& other)
{
    if (one.isNumber() && other.isNumber()) {
        if (one.isReal() || other.isReal())
            return one.doubleValue() == other.doubleValue();
        return one.integerValue() == other.integerValue();
    }
    if (const auto* object = one.anyObject()) {
        const auto* otherObject = other.anyObject();
        return object == otherObject || (otherObject && object->isEqual(*otherObject));
    }
    if (one.m_value.index() != other.m_value.index())
        return false;
    return std::visit(
        [&other](const auto& value) {
            const auto& otherValue = std::get<std::decay_t<decltype(value)>>(other.m_value);
            if constexpr (requires { *value == *otherValue; })
                return equalShared(value, otherValue);
            else
                return value == otherValue;
        },
        one.m_value);
}
