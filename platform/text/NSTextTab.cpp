#include "platform/text/NSTextTab.h"

#include "platform/text/CoderValues.h"

#include <functional>
#include <utility>

namespace {

/// The alignment of a tab's type number, which older archives have instead of an alignment. A decimal tab
/// (3) lines up at the right of its whole part.
NSTextAlignment alignmentOfTabType(std::int64_t type)
{
    if (type == 1 || type == 3)
        return NSTextAlignment::Right;
    return type == 2 ? NSTextAlignment::Center : NSTextAlignment::Left;
}

NSAny decodeTextTab(NSCoder& coder)
{
    const bool hasTypeOnly
        = !coder.containsValueForKey("NSTextAlignment") && coder.containsValueForKey("NSType");
    const auto alignment = hasTypeOnly
        ? alignmentOfTabType(coder.decodeIntegerForKey("NSType"))
        : textAlignmentFromNumber(coder.decodeIntegerForKey("NSTextAlignment"));
    const auto options
        = coder.decodeObjectOfClasses({&NSDictionaryClass, &NSStringClass, &NSNumberClass}, "NSTabOptions");
    return std::make_shared<const NSTextTab>(alignment, decodeReal(coder, "NSLocation"),
                                             options.dictionary() ? *options.dictionary()
                                                                  : NSAny::Dictionary());
}

} // namespace

NSTextTab::NSTextTab(NSTextAlignment alignment, double location, NSAny::Dictionary options)
    : m_alignment(alignment)
    , m_location(location)
    , m_options(std::move(options))
{
}

bool NSTextTab::isEqual(const NSObject& other) const
{
    const auto* tab = dynamic_cast<const NSTextTab*>(&other);
    return tab && tab->m_location == m_location && tab->m_alignment == m_alignment
        && tab->m_options == m_options;
}

std::size_t NSTextTab::hash() const
{
    return std::hash<double>()(m_location);
}

const NSClass& NSTextTab::classObject()
{
    static const NSClass object{"NSTextTab", &NSObjectClass, &decodeTextTab};
    return object;
}

const NSClass& NSTextTab::classForCoder() const
{
    return classObject();
}

void NSTextTab::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeDouble(m_location, "NSLocation");
    if (m_alignment == NSTextAlignment::Left && m_options.empty())
        return;
    coder.encodeObject(NSAny(m_options), "NSTabOptions");
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(m_alignment), "NSTextAlignment");
}
