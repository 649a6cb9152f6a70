#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSRange.h"

#include <cstdint>
#include <variant>

/// Numbers of one C type, as archives hold C arrays.
class NSKeyedCoderOldStyleArray final : public NSCoding {
public:
    /// `elementType` is the C type's letter as the platform writes types ('i' for int, 'd' for double) and
    /// `elementSize` its bytes.
    NSKeyedCoderOldStyleArray(std::int64_t elementType, std::int64_t elementSize, NSAny::Array elements);

    [[nodiscard]] static const NSClass& classObject();

    [[nodiscard]] const NSAny::Array& elements() const { return m_elements; }

    [[nodiscard]] bool isEqual(const NSObject& other) const override;

    [[nodiscard]] std::size_t hash() const override { return m_elements.size(); }

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    void encodeWithCoder(NSCoder& coder) const override;

private:
    std::int64_t m_elementType;
    std::int64_t m_elementSize;
    NSAny::Array m_elements;
};

/// A structure as an object.
class NSValue final : public NSCoding {
public:
    /// A value of any other C type: its name as the platform writes types ("[3i]"), and the number or
    /// NSKeyedCoderOldStyleArray that it holds.
    struct Typed {
        std::u16string objCType;
        NSAny value;

        friend bool operator==(const Typed&, const Typed&) = default;
    };

    using Content = std::variant<NSPoint, NSSize, NSRect, NSRange, NSEdgeInsets, Typed>;

    explicit NSValue(Content content)
        : m_content(std::move(content))
    {
    }

    [[nodiscard]] static const NSClass& classObject();

    /// Null when the value is of another kind.
    template <typename Kind> [[nodiscard]] const Kind* get() const { return std::get_if<Kind>(&m_content); }

    [[nodiscard]] bool isEqual(const NSObject& other) const override;

    [[nodiscard]] std::size_t hash() const override { return m_content.index(); }

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    void encodeWithCoder(NSCoder& coder) const override;

private:
    Content m_content;
};
