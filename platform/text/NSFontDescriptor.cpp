#include "platform/text/NSFontDescriptor.h"

#include "platform/foundation/NSCoder.h"

#include <utility>

namespace {

constexpr std::string_view kAttributesKey = "NSFontDescriptorAttributes";

} // namespace

NSFontDescriptor::NSFontDescriptor(NSAny::Dictionary attributes)
    : m_attributes(std::move(attributes))
{
}

NSFontDescriptor::Ref NSFontDescriptor::fontDescriptorWithFontAttributes(NSAny::Dictionary attributes)
{
    return std::make_shared<NSFontDescriptor>(NSFontDescriptor(std::move(attributes)));
}

NSFontDescriptor::Ref NSFontDescriptor::fontDescriptorWithName(std::u16string_view postScriptName,
                                                               double size)
{
    return fontDescriptorWithFontAttributes({{std::u16string(NSFontNameAttribute), NSAny(postScriptName)},
                                             {std::u16string(NSFontSizeAttribute), NSAny(size)}});
}

NSAny NSFontDescriptor::objectForKey(std::u16string_view attribute) const
{
    const auto found = m_attributes.find(attribute);
    return found == m_attributes.end() ? NSAny() : found->second;
}

std::u16string_view NSFontDescriptor::postscriptName() const
{
    const auto found = m_attributes.find(NSFontNameAttribute);
    const auto* name = found == m_attributes.end() ? nullptr : found->second.string();
    return name ? std::u16string_view(*name) : std::u16string_view();
}

double NSFontDescriptor::pointSize() const
{
    return objectForKey(NSFontSizeAttribute).doubleValue();
}

NSFontDescriptor::Ref
NSFontDescriptor::fontDescriptorByAddingAttributes(const NSAny::Dictionary& attributes) const
{
    auto all = m_attributes;
    for (const auto& [key, value] : attributes)
        all.insert_or_assign(key, value);
    return fontDescriptorWithFontAttributes(std::move(all));
}

bool NSFontDescriptor::isEqual(const NSObject& other) const
{
    const auto* descriptor = dynamic_cast<const NSFontDescriptor*>(&other);
    return descriptor && descriptor->m_attributes == m_attributes;
}

std::size_t NSFontDescriptor::hash() const
{
    return NSAny(m_attributes).hash();
}

const NSClass& NSFontDescriptor::classObject()
{
    static constexpr NSClass kClass{"NSFontDescriptor", &NSObjectClass, &NSFontDescriptor::initWithCoder};
    return kClass;
}

const NSClass& NSFontDescriptor::classForCoder() const
{
    return classObject();
}

void NSFontDescriptor::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeObject(m_attributes, kAttributesKey);
}

NSAny NSFontDescriptor::initWithCoder(NSCoder& coder)
{
    const NSClassList accepted{&NSDictionaryClass, &NSStringClass, &NSNumberClass, &NSArrayClass};
    const auto attributes = coder.decodeObjectOfClasses(accepted, kAttributesKey);
    return NSAny(fontDescriptorWithFontAttributes(attributes.dictionary() ? *attributes.dictionary()
                                                                          : NSAny::Dictionary()));
}
