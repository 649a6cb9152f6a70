#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"

#include <array>
#include <cstdint>
#include <string>

/// Identifiers of 16 bytes.
class NSUUID final : public NSCoding {
public:
    using Bytes = std::array<std::uint8_t, 16>;

    /// A fresh random one.
    [[nodiscard]] static NSUUID UUID();
    /// A fresh random one in the usual form of 36 upper-case characters.
    [[nodiscard]] static std::string UUIDString();

    explicit NSUUID(const Bytes& bytes)
        : m_bytes(bytes)
    {
    }

    [[nodiscard]] static const NSClass& classObject();

    [[nodiscard]] const Bytes& bytes() const { return m_bytes; }

    /// This one in the usual form.
    [[nodiscard]] std::string string() const;

    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    void encodeWithCoder(NSCoder& coder) const override;

private:
    Bytes m_bytes;
};
