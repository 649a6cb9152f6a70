#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSURL.h"

#include <concepts>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// Bytes, where a value may be a text or bytes.
struct NSData {
    std::string bytes;

    friend bool operator==(const NSData&, const NSData&) = default;
};

/// A moment, in seconds since 2001-01-01 00:00 UTC.
struct NSDate {
    double timeIntervalSinceReferenceDate = 0;

    friend bool operator==(const NSDate&, const NSDate&) = default;
};

/// Any value that attributes, property lists, user defaults and archives hold: nothing (nil), a boolean, a
/// number, a text, bytes, a date, a URL, an array, a dictionary, or an object of one of the platform's
/// classes.
///
/// A value is cheap to copy: texts, bytes and collections are shared and never change. Booleans and numbers
/// compare by what they count (true equals 1, 1 equals 1.0), collections by their elements, objects by
/// `isEqual`.
class NSAny {
public:
    using Array = std::vector<NSAny>;
    using Dictionary = std::map<std::u16string, NSAny, std::less<>>;

    NSAny() = default;

    NSAny(std::nullptr_t) { } // NOLINT(google-explicit-constructor)

    NSAny(bool value)
        : m_value(value)
    {
    }

    template <std::integral Integer>

    requires(!std::same_as<Integer, bool>) NSAny(Integer value)
        : m_value(static_cast<std::int64_t>(value))
    {
    }

    NSAny(double value)
        : m_value(value)
    {
    }

    NSAny(std::u16string text);

    NSAny(std::u16string_view text)
        : NSAny(std::u16string(text))
    {
    }

    NSAny(const char16_t* text)
        : NSAny(std::u16string(text))
    {
    }

    NSAny(NSData data);

    NSAny(NSDate date)
        : m_value(date)
    {
    }

    NSAny(NSURL url);
    NSAny(Array array);
    NSAny(Dictionary dictionary);
    NSAny(std::shared_ptr<const Dictionary> dictionary);

    /// An immutable value object, or nil for a null pointer.
    template <std::derived_from<NSObject> Class> NSAny(std::shared_ptr<const Class> object)
    {
        if (object)
            m_value = std::shared_ptr<const NSObject>(std::move(object));
    }

    /// An object with an identity that may change: an attachment, a file wrapper.
    template <std::derived_from<NSObject> Class>

    requires(!std::is_const_v<Class>) NSAny(std::shared_ptr<Class> object)
    {
        if (object)
            m_value = std::shared_ptr<NSObject>(std::move(object));
    }

    [[nodiscard]] bool isNil() const { return std::holds_alternative<std::monostate>(m_value); }

    /// Whether there is a value. Not its boolean reading: see `boolValue`.
    explicit operator bool() const { return !isNil(); }

    /// Null when the value is of another kind. Valid as long as some copy of the value lives.
    [[nodiscard]] const std::u16string* string() const;
    [[nodiscard]] const NSData* data() const;
    [[nodiscard]] const NSURL* url() const;
    [[nodiscard]] const Array* array() const;
    [[nodiscard]] const Dictionary* dictionary() const;
    /// The dictionary with its ownership; null when the value is of another kind.
    [[nodiscard]] std::shared_ptr<const Dictionary> sharedDictionary() const;
    [[nodiscard]] std::optional<NSDate> date() const;

    [[nodiscard]] bool isBoolean() const { return std::holds_alternative<bool>(m_value); }

    [[nodiscard]] bool isInteger() const { return std::holds_alternative<std::int64_t>(m_value); }

    [[nodiscard]] bool isReal() const { return std::holds_alternative<double>(m_value); }

    /// A boolean, an integer or a real.
    [[nodiscard]] bool isNumber() const { return isBoolean() || isInteger() || isReal(); }

    /// The value read as a number, as the platform reads numbers and texts: a text gives the number it begins
    /// with, anything else 0. A real is cut towards zero and held within the integers' bounds.
    [[nodiscard]] std::int64_t integerValue() const;
    [[nodiscard]] double doubleValue() const;

    [[nodiscard]] float floatValue() const { return static_cast<float>(doubleValue()); }

    /// The value's boolean reading: a number that is not 0; a text that begins, behind blanks, a sign and
    /// zeros, with Y, y, T, t or a digit from 1 to 9. False for everything else.
    [[nodiscard]] bool boolValue() const;

    /// The object, when there is one of the class or of one derived from it; else null.
    template <std::derived_from<NSObject> Class> [[nodiscard]] std::shared_ptr<const Class> object() const
    {
        if (const auto* shared = std::get_if<std::shared_ptr<const NSObject>>(&m_value))
            return std::dynamic_pointer_cast<const Class>(*shared);
        return mutableObject<Class>();
    }

    /// The object, when it is one that may change; else null.
    template <std::derived_from<NSObject> Class> [[nodiscard]] std::shared_ptr<Class> mutableObject() const
    {
        if (const auto* shared = std::get_if<std::shared_ptr<NSObject>>(&m_value))
            return std::dynamic_pointer_cast<Class>(*shared);
        return nullptr;
    }

    /// The object itself, of whatever class; null for all other kinds.
    [[nodiscard]] const NSObject* anyObject() const;

    /// Where the shared part of the value lies: equal for copies of one value. Null for nil, booleans,
    /// numbers and dates, which have no identity.
    [[nodiscard]] const void* identity() const;

    [[nodiscard]] std::size_t hash() const;
    friend bool operator==(const NSAny& one, const NSAny& other);

private:
    using Value
        = std::variant<std::monostate, bool, std::int64_t, double, std::shared_ptr<const std::u16string>,
                       std::shared_ptr<const NSData>, NSDate, std::shared_ptr<const NSURL>,
                       std::shared_ptr<const Array>, std::shared_ptr<const Dictionary>,
                       std::shared_ptr<const NSObject>, std::shared_ptr<NSObject>>;

    Value m_value;
};
