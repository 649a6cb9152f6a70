#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

inline constexpr std::string_view kBinaryPropertyListStart = "bplist00";

/// The objects of a binary property list as they lie in its bytes: a flat table, each object found by its
/// reference, nothing decoded before it is asked for. This is what lets an archive of thousands of shared
/// objects be read without a tree of copies.
///
/// All of it is checked once, in time proportional to the bytes: every object lies within the data and apart
/// from the others, every reference names an object. References may still run in circles.
class BinaryPropertyList {
public:
    using Reference = std::uint32_t;

    enum class Kind : std::uint8_t { Null, Boolean, Integer, Real, Date, Data, Text, UID, Array, Dictionary };

    /// `data` is not copied and must outlive the list. None, with PropertyListReadCorrupt in `error`, when it
    /// is malformed.
    [[nodiscard]] static std::optional<BinaryPropertyList> createWithData(std::string_view data,
                                                                          NSError* error = nullptr);

    [[nodiscard]] Reference root() const { return m_root; }

    [[nodiscard]] std::size_t objectCount() const { return m_objects.size(); }

    [[nodiscard]] Kind kind(Reference reference) const { return m_objects[reference].kind; }

    /// Bytes of data, characters of a text, elements of an array (or set), entries of a dictionary; else 0.
    [[nodiscard]] std::size_t count(Reference reference) const;

    /// The bytes that hold a text or data.
    [[nodiscard]] std::size_t byteCount(Reference reference) const;

    /// A boolean, number, date, data or text. An integer beyond 64 bits with sign becomes a real, the nearest
    /// there is. Nil for all other kinds.
    [[nodiscard]] NSAny value(Reference reference) const;

    /// None when the object is no UID, or one beyond 64 bits.
    [[nodiscard]] std::optional<std::uint64_t> UIDValue(Reference reference) const;

    /// The object must be an array and `index` within it.
    [[nodiscard]] Reference element(Reference array, std::size_t index) const;

    /// The object must be a dictionary and `index` within it.
    [[nodiscard]] Reference key(Reference dictionary, std::size_t index) const;
    [[nodiscard]] Reference entryValue(Reference dictionary, std::size_t index) const;

    /// What stands under a key of a dictionary; none when the object is no dictionary or has no such key.
    /// Costs a walk over the keys. `name` is ASCII.
    [[nodiscard]] std::optional<Reference> valueForKey(Reference dictionary, std::string_view name) const;

    [[nodiscard]] bool isText(Reference reference, std::string_view ascii) const;

private:
    struct Object {
        std::uint32_t offset = 0; // Of the payload, behind marker and count.
        std::uint32_t count = 0; // Elements, characters or, for scalars, bytes.
        Kind kind = Kind::Null;
        std::uint8_t unitSize = 1; // Bytes of one element.
    };

    struct Trailer;
    class Parser;

    explicit BinaryPropertyList(std::string_view data)
        : m_data(data)
    {
    }

    [[nodiscard]] std::uint64_t bigEndian(std::size_t offset, std::size_t byteCount) const;
    [[nodiscard]] NSAny integerValue(const Object& object) const;
    [[nodiscard]] double realValue(const Object& object) const;
    [[nodiscard]] std::u16string textValue(const Object& object) const;
    [[nodiscard]] Reference referenceAt(const Object& object, std::size_t index) const;

    std::string_view m_data;
    std::vector<Object> m_objects;
    Reference m_root = 0;
    std::uint8_t m_referenceSize = 1;
};
