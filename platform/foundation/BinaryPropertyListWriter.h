#pragma once

#include "platform/foundation/NSAny.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Makes a binary property list from its objects, given in any order as long as a collection's contents come
/// before it. Equal texts, numbers, dates, data and UIDs are stored once. Texts of any UTF-16 units are kept,
/// unpaired surrogates and NULs too.
class BinaryPropertyListWriter {
public:
    using Reference = std::uint32_t;

    Reference addBoolean(bool value);
    Reference addInteger(std::int64_t value);
    Reference addReal(double value);
    Reference addDate(NSDate date);
    Reference addData(std::string_view bytes);
    Reference addText(std::u16string_view text);
    Reference addASCII(std::string_view text);
    Reference addUID(std::uint64_t value);
    Reference addArray(std::span<const Reference> elements);
    /// Both lists have one length; keys are texts.
    Reference addDictionary(std::span<const Reference> keys, std::span<const Reference> values);

    /// The finished list. None when it would be larger than property lists may be.
    [[nodiscard]] std::optional<std::string> finish(Reference root) const;

private:
    /// A value as its bytes, or a collection as its contents; ranges of the one or the other store.
    struct Object {
        std::size_t start = 0;
        std::size_t count = 0;
        std::size_t hash = 0;
        bool isCollection = false;
        bool isDictionary = false;
    };

    Reference addValue(std::size_t start);
    Reference addCollection(Object object);
    [[nodiscard]] std::size_t placeOf(const Object& value) const;
    void makeRoom();
    [[nodiscard]] std::string_view bytesOf(const Object& object) const;

    std::string m_values;
    std::vector<Reference> m_contents;
    std::vector<Object> m_objects;
    /// Where the values stand by their hashes, each at the first free place from its own on: references
    /// counted from 1, 0 for a free place. A power of two, at least twice as large as there are values.
    std::vector<Reference> m_places;
    std::size_t m_valueCount = 0;
};
