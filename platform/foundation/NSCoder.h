#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSError.h"

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The classes that a decoding operation accepts; an object of a subclass is accepted too.
using NSClassList = std::vector<const NSClass*>;

/// How objects give their values to an archive under keys, and take them from it. Keys are ASCII.
///
/// Decoding never throws. A value that is absent, or of another kind than asked for, gives the stated
/// default; what makes an object impossible is said with `failWithError`, after which the whole decoding
/// fails.
class NSCoder {
public:
    NSCoder() = default;
    NSCoder(const NSCoder&) = delete;
    NSCoder& operator=(const NSCoder&) = delete;
    virtual ~NSCoder() = default;

    /// Nil is written as a reference to nothing. An object or collection met before is written once and
    /// referred to.
    virtual void encodeObject(const NSAny& object, std::string_view key) = 0;
    virtual void encodeBool(bool value, std::string_view key) = 0;
    virtual void encodeInteger(std::int64_t value, std::string_view key) = 0;
    virtual void encodeFloat(float value, std::string_view key) = 0;
    virtual void encodeDouble(double value, std::string_view key) = 0;
    /// Bytes that stand in the object itself, not as an object of their own.
    virtual void encodeBytes(std::string_view bytes, std::string_view key) = 0;
    /// The same for a text. It is decoded as an object is.
    virtual void encodeInlineString(std::u16string_view text, std::string_view key) = 0;
    /// A list of references in the object itself, as collections hold their contents.
    virtual void encodeArrayOfObjects(std::span<const NSAny> objects, std::string_view key) = 0;

    /// Objects of the mutable classes, where a form asks for them. Each call writes an object of its own;
    /// they are decoded as what encodeObject writes is.
    virtual void encodeMutableString(std::u16string_view text, std::string_view key) = 0;
    virtual void encodeMutableData(std::string_view bytes, std::string_view key) = 0;
    virtual void encodeMutableArray(std::span<const NSAny> objects, std::string_view key) = 0;

    [[nodiscard]] virtual bool containsValueForKey(std::string_view key) const = 0;
    /// The object under the key, of any class; nil when absent. With secure coding: of the classes of the
    /// enclosing operation.
    [[nodiscard]] virtual NSAny decodeObjectForKey(std::string_view key) = 0;
    /// The object under the key; nil when absent. With secure coding one of another class makes the decoding
    /// fail. Without, the classes are not looked at and any object may come.
    [[nodiscard]] virtual NSAny decodeObjectOfClasses(const NSClassList& classes, std::string_view key) = 0;
    /// What encodeArrayOfObjects wrote, each object as decodeObjectForKey gives it. Nil stands where an
    /// object was left out because its class is unknown. Empty when absent.
    [[nodiscard]] virtual std::vector<NSAny> decodeArrayOfObjectsForKey(std::string_view key) = 0;
    /// The same with classes, as decodeObjectOfClasses takes them.
    [[nodiscard]] virtual std::vector<NSAny> decodeArrayOfObjectsOfClasses(const NSClassList& classes,
                                                                           std::string_view key)
        = 0;
    /// False, 0 and 0.0 when absent. Integers and reals are taken for each other.
    [[nodiscard]] virtual bool decodeBoolForKey(std::string_view key) = 0;
    [[nodiscard]] virtual std::int64_t decodeIntegerForKey(std::string_view key) = 0;
    [[nodiscard]] virtual double decodeDoubleForKey(std::string_view key) = 0;
    /// Bytes in the object itself, or in a data object that the key refers to. None when absent.
    [[nodiscard]] virtual std::optional<std::string> decodeBytesForKey(std::string_view key) = 0;

    [[nodiscard]] virtual bool requiresSecureCoding() const = 0;
    /// The first error stays; null while there is none.
    virtual void failWithError(NSError error) = 0;
    [[nodiscard]] virtual const NSError* error() const = 0;

    [[nodiscard]] float decodeFloatForKey(std::string_view key)
    {
        return static_cast<float>(decodeDoubleForKey(key));
    }

    [[nodiscard]] NSAny decodeObjectOfClass(const NSClass& accepted, std::string_view key)
    {
        return decodeObjectOfClasses({&accepted}, key);
    }

    /// The text under the key; none when absent.
    [[nodiscard]] std::optional<std::u16string> decodeStringForKey(std::string_view key);
};
