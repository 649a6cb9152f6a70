#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/text/NSTextAlignment.h"

#include <memory>
#include <string_view>

/// The option of a tab that lists the characters which end its column: a decimal tab's decimal separators.
inline constexpr std::u16string_view NSTabColumnTerminatorsAttributeName
    = u"NSTabColumnTerminatorsAttributeName";

/// A tab stop. Immutable and shared; equal as a value.
class NSTextTab final : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSTextTab>;

    /// `location` is in points from the margin.
    NSTextTab(NSTextAlignment alignment, double location, NSAny::Dictionary options = {});

    [[nodiscard]] NSTextAlignment alignment() const { return m_alignment; }

    [[nodiscard]] double location() const { return m_location; }

    [[nodiscard]] const NSAny::Dictionary& options() const { return m_options; }

    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    NSTextAlignment m_alignment;
    double m_location;
    NSAny::Dictionary m_options;
};
