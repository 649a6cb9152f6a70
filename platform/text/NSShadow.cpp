#include "platform/text/NSShadow.h"

#include "platform/text/CoderValues.h"

#include <functional>
#include <utility>

namespace {

NSAny decodeShadow(NSCoder& coder)
{
    auto color = coder.decodeObjectOfClass(NSColor::classObject(), "NSShadowColor").object<NSColor>();
    const auto offset = NSMakeSize(decodeReal(coder, "NSShadowHoriz"), decodeReal(coder, "NSShadowVert"));
    return std::make_shared<const NSShadow>(offset, decodeReal(coder, "NSShadowBlurRadius"),
                                            std::move(color));
}

} // namespace

NSShadow::NSShadow(NSSize offset, double blurRadius, NSColor::Ref color)
    : m_offset(offset)
    , m_blurRadius(blurRadius)
    , m_color(std::move(color))
{
}

bool NSShadow::isEqual(const NSObject& other) const
{
    const auto* shadow = dynamic_cast<const NSShadow*>(&other);
    return shadow && shadow->m_offset == m_offset && shadow->m_blurRadius == m_blurRadius
        && NSAny(shadow->m_color) == NSAny(m_color);
}

std::size_t NSShadow::hash() const
{
    return std::hash<double>()(m_offset.width) ^ std::hash<double>()(m_blurRadius);
}

const NSClass& NSShadow::classObject()
{
    static const NSClass object{"NSShadow", &NSObjectClass, &decodeShadow};
    return object;
}

const NSClass& NSShadow::classForCoder() const
{
    return classObject();
}

void NSShadow::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeDouble(m_offset.width, "NSShadowHoriz");
    coder.encodeDouble(m_offset.height, "NSShadowVert");
    encodeRealUnlessZero(coder, m_blurRadius, "NSShadowBlurRadius");
    if (m_color)
        coder.encodeObject(NSAny(m_color), "NSShadowColor");
}
