#pragma once

#include "platform/foundation/NSAny.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A binary property list from the bytes of its objects, however wrong they are. References and offsets in
/// the table take two bytes.
struct PropertyListBytes {
    std::vector<std::string> objects{};
    std::uint64_t root = 0;
    /// Numbers of the trailer, when not the right ones.
    std::optional<std::uint8_t> offsetSize{};
    std::optional<std::uint8_t> referenceSize{};
    std::optional<std::uint64_t> objectCount{};
    std::optional<std::uint64_t> tableOffset{};

    [[nodiscard]] std::string bytes() const;
};

/// A marker, with a count below 15, and references to the objects.
[[nodiscard]] std::string collectionBytes(std::uint8_t marker, const std::vector<std::uint16_t>& references);

/// A reference of an archive.
[[nodiscard]] NSAny archiveUID(std::uint64_t value);

/// The record of a class with its ancestors.
[[nodiscard]] NSAny archiveClass(const std::vector<std::u16string>& names);

/// A keyed archive of these objects, numbered from 1, whose root is object 1.
[[nodiscard]] NSAny archiveOf(NSAny::Array objects);
[[nodiscard]] std::string archiveBytes(NSAny::Array objects);
