#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <cstdint>
#include <optional>
#include <string_view>

enum class NSPropertyListFormat : int {
    XML = 100,
    Binary = 200,
};

/// A reference within a keyed archive, as property lists hold it: a kind of its own, not a number.
class NSKeyedArchiverUID final : public NSObject {
public:
    explicit NSKeyedArchiverUID(std::uint64_t value)
        : m_value(value)
    {
    }

    [[nodiscard]] std::uint64_t value() const { return m_value; }

    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

private:
    std::uint64_t m_value;
};

/// Property lists as values: booleans, integers, reals, texts, data, dates, arrays, dictionaries and
/// NSKeyedArchiverUID. What holds anything else is no property list.
///
/// Nothing is lost on the way but these: an integer from 2^63 on is read as the nearest real, and the XML
/// form has dates in whole seconds. The binary form keeps any UTF-16 units.
class NSPropertyListSerialization {
public:
    /// Reads either form. Nil, with PropertyListReadCorrupt in `error`, when the data is malformed, has a
    /// dictionary with keys that are no texts, or goes beyond PropertyListLimits.h.
    [[nodiscard]] static NSAny propertyListWithData(std::string_view data, NSError* error = nullptr);

    /// None, with PropertyListWriteInvalid in `error`, when the value is no property list, is nested too
    /// deeply or too large, or when a text cannot stand in XML.
    [[nodiscard]] static std::optional<NSData>
    dataWithPropertyList(const NSAny& propertyList, NSPropertyListFormat format, NSError* error = nullptr);
};
