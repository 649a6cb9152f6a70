#pragma once

#include "platform/foundation/NSCoder.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

/// A coder whose one object is a map that tests look at and fill: encoding puts values under their keys as
/// they are, decoding gives them back.
class KeyedValues final : public NSCoder {
public:
    using Values = std::map<std::string, NSAny, std::less<>>;

    KeyedValues() = default;

    explicit KeyedValues(Values values)
        : m_values(std::move(values))
    {
    }

    [[nodiscard]] static Values of(const NSCoding& object)
    {
        KeyedValues coder;
        object.encodeWithCoder(coder);
        return coder.m_values;
    }

    /// The object of a class that the values make; nil when they make none.
    [[nodiscard]] static NSAny make(const NSClass& objectClass, Values values)
    {
        KeyedValues coder(std::move(values));
        auto object = objectClass.initWithCoder(coder);
        return coder.m_error ? NSAny() : object;
    }

    void encodeObject(const NSAny& object, std::string_view key) override { set(key, object); }

    void encodeBool(bool value, std::string_view key) override { set(key, value); }

    void encodeInteger(std::int64_t value, std::string_view key) override { set(key, value); }

    void encodeFloat(float value, std::string_view key) override { set(key, static_cast<double>(value)); }

    void encodeDouble(double value, std::string_view key) override { set(key, value); }

    void encodeBytes(std::string_view bytes, std::string_view key) override
    {
        set(key, NSData{std::string(bytes)});
    }

    void encodeInlineString(std::u16string_view text, std::string_view key) override { set(key, text); }

    void encodeArrayOfObjects(std::span<const NSAny> objects, std::string_view key) override
    {
        set(key, NSAny::Array(objects.begin(), objects.end()));
    }

    void encodeMutableString(std::u16string_view text, std::string_view key) override { set(key, text); }

    void encodeMutableData(std::string_view bytes, std::string_view key) override { encodeBytes(bytes, key); }

    void encodeMutableArray(std::span<const NSAny> objects, std::string_view key) override
    {
        encodeArrayOfObjects(objects, key);
    }

    [[nodiscard]] bool containsValueForKey(std::string_view key) const override
    {
        return m_values.find(key) != m_values.end();
    }

    [[nodiscard]] NSAny decodeObjectForKey(std::string_view key) override { return value(key); }

    [[nodiscard]] NSAny decodeObjectOfClasses(const NSClassList& /*classes*/, std::string_view key) override
    {
        return value(key);
    }

    [[nodiscard]] std::vector<NSAny> decodeArrayOfObjectsForKey(std::string_view key) override
    {
        const auto found = value(key);
        return found.array() ? *found.array() : NSAny::Array();
    }

    [[nodiscard]] std::vector<NSAny> decodeArrayOfObjectsOfClasses(const NSClassList& /*classes*/,
                                                                   std::string_view key) override
    {
        return decodeArrayOfObjectsForKey(key);
    }

    [[nodiscard]] bool decodeBoolForKey(std::string_view key) override
    {
        return value(key).isNumber() && value(key).boolValue();
    }

    [[nodiscard]] std::int64_t decodeIntegerForKey(std::string_view key) override
    {
        return value(key).isNumber() ? value(key).integerValue() : 0;
    }

    [[nodiscard]] double decodeDoubleForKey(std::string_view key) override
    {
        return value(key).isNumber() ? value(key).doubleValue() : 0;
    }

    [[nodiscard]] std::optional<std::string> decodeBytesForKey(std::string_view key) override
    {
        const auto found = value(key);
        return found.data() ? std::optional(found.data()->bytes) : std::nullopt;
    }

    [[nodiscard]] bool requiresSecureCoding() const override { return false; }

    void failWithError(NSError error) override { m_error = m_error ? m_error : std::move(error); }

    [[nodiscard]] const NSError* error() const override { return m_error ? &*m_error : nullptr; }

private:
    void set(std::string_view key, NSAny value)
    {
        m_values.insert_or_assign(std::string(key), std::move(value));
    }

    [[nodiscard]] NSAny value(std::string_view key) const
    {
        const auto found = m_values.find(key);
        return found == m_values.end() ? NSAny() : found->second;
    }

    Values m_values;
    std::optional<NSError> m_error;
};
