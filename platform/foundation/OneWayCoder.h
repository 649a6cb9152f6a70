#pragma once

#include "platform/foundation/NSCoder.h"

// An archiver only encodes and an unarchiver only decodes. Asking either for the other is a mistake of the
// program; it gives the values of an empty archive, or nothing.

class EncodingCoder : public NSCoder {
public:
    [[nodiscard]] bool containsValueForKey(std::string_view /*key*/) const final { return false; }

    [[nodiscard]] NSAny decodeObjectForKey(std::string_view /*key*/) final { return nullptr; }

    [[nodiscard]] NSAny decodeObjectOfClasses(const NSClassList& /*classes*/, std::string_view /*key*/) final
    {
        return nullptr;
    }

    [[nodiscard]] std::vector<NSAny> decodeArrayOfObjectsForKey(std::string_view /*key*/) final { return {}; }

    [[nodiscard]] std::vector<NSAny> decodeArrayOfObjectsOfClasses(const NSClassList& /*classes*/,
                                                                   std::string_view /*key*/) final
    {
        return {};
    }

    [[nodiscard]] bool decodeBoolForKey(std::string_view /*key*/) final { return false; }

    [[nodiscard]] std::int64_t decodeIntegerForKey(std::string_view /*key*/) final { return 0; }

    [[nodiscard]] double decodeDoubleForKey(std::string_view /*key*/) final { return 0; }

    [[nodiscard]] std::optional<std::string> decodeBytesForKey(std::string_view /*key*/) final
    {
        return std::nullopt;
    }
};

class DecodingCoder : public NSCoder {
public:
    void encodeObject(const NSAny& /*object*/, std::string_view /*key*/) final { }

    void encodeBool(bool /*value*/, std::string_view /*key*/) final { }

    void encodeInteger(std::int64_t /*value*/, std::string_view /*key*/) final { }

    void encodeFloat(float /*value*/, std::string_view /*key*/) final { }

    void encodeDouble(double /*value*/, std::string_view /*key*/) final { }

    void encodeBytes(std::string_view /*bytes*/, std::string_view /*key*/) final { }

    void encodeInlineString(std::u16string_view /*text*/, std::string_view /*key*/) final { }

    void encodeArrayOfObjects(std::span<const NSAny> /*objects*/, std::string_view /*key*/) final { }

    void encodeMutableString(std::u16string_view /*text*/, std::string_view /*key*/) final { }

    void encodeMutableData(std::string_view /*bytes*/, std::string_view /*key*/) final { }

    void encodeMutableArray(std::span<const NSAny> /*objects*/, std::string_view /*key*/) final { }
};
