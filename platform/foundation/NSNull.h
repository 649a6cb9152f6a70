#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"

/// An object that stands for nothing where a collection must hold something.
class NSNull final : public NSCoding {
public:
    [[nodiscard]] static const NSClass& classObject();

    /// The one object.
    [[nodiscard]] static NSAny null();

    [[nodiscard]] bool isEqual(const NSObject& other) const override;

    [[nodiscard]] std::size_t hash() const override { return 0; }

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    void encodeWithCoder(NSCoder& /*coder*/) const override { }
};
