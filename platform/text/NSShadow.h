#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/text/NSColor.h"

#include <memory>

/// A shadow behind text. Immutable and shared; equal as a value.
class NSShadow final : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSShadow>;

    /// `offset` and `blurRadius` are in points; a positive height is up. A null colour is no shadow.
    NSShadow(NSSize offset, double blurRadius, NSColor::Ref color);

    [[nodiscard]] NSSize shadowOffset() const { return m_offset; }

    [[nodiscard]] double shadowBlurRadius() const { return m_blurRadius; }

    [[nodiscard]] const NSColor::Ref& shadowColor() const { return m_color; }

    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    NSSize m_offset;
    double m_blurRadius;
    NSColor::Ref m_color;
};
