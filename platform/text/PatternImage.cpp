#include "platform/text/PatternImage.h"

#include "platform/foundation/NSCoder.h"
#include "platform/text/NSColor.h"

#include <array>

namespace {

/// The keys of images and of their representations. Those of numbers stand in the object itself.
constexpr std::array<std::string_view, 3> kNumberKeys{"NSImageFlags", "NSResizingMode",
                                                      "NSInternalLayoutDirection"};
constexpr std::array<std::string_view, 5> kObjectKeys{"NSSize", "NSReps", "NSColor", "NSTIFFRepresentation",
                                                      "NSPDFRepresentation"};

const NSClassList& heldClasses()
{
    static const NSClassList classes{&NSStringClass,
                                     &NSNumberClass,
                                     &NSDataClass,
                                     &NSArrayClass,
                                     &NSColor::classObject(),
                                     &PatternImage::bitmapClass(),
                                     &PatternImage::PDFClass()};
    return classes;
}

} // namespace

const NSClass& PatternImage::imageClass()
{
    static constexpr NSClass kClass{"NSImage", &NSObjectClass, &PatternImage::imageFromCoder};
    return kClass;
}

const NSClass& PatternImage::bitmapClass()
{
    static constexpr NSClass kClass{"NSBitmapImageRep", &NSObjectClass, &PatternImage::bitmapFromCoder};
    return kClass;
}

const NSClass& PatternImage::PDFClass()
{
    static constexpr NSClass kClass{"NSPDFImageRep", &NSObjectClass, &PatternImage::PDFFromCoder};
    return kClass;
}

NSAny PatternImage::imageFromCoder(NSCoder& coder)
{
    return fromCoder(imageClass(), coder);
}

NSAny PatternImage::bitmapFromCoder(NSCoder& coder)
{
    return fromCoder(bitmapClass(), coder);
}

NSAny PatternImage::PDFFromCoder(NSCoder& coder)
{
    return fromCoder(PDFClass(), coder);
}

NSAny PatternImage::fromCoder(const NSClass& archivedClass, NSCoder& coder)
{
    PatternImage image(archivedClass);
    for (const auto key : kNumberKeys) {
        if (coder.containsValueForKey(key))
            image.m_values.emplace_back(key, NSAny(coder.decodeIntegerForKey(key)));
    }
    for (const auto key : kObjectKeys) {
        if (coder.containsValueForKey(key))
            image.m_values.emplace_back(key, coder.decodeObjectOfClasses(heldClasses(), key));
    }
    return NSAny(std::shared_ptr<const PatternImage>(std::make_shared<PatternImage>(std::move(image))));
}

void PatternImage::encodeWithCoder(NSCoder& coder) const
{
    for (const auto& [key, value] : m_values) {
        if (value.isInteger())
            coder.encodeInteger(value.integerValue(), key);
        else
            coder.encodeObject(value, key);
    }
}

bool PatternImage::isEqual(const NSObject& other) const
{
    const auto* image = dynamic_cast<const PatternImage*>(&other);
    return image && image->m_class == m_class && image->m_values == m_values;
}

std::size_t PatternImage::hash() const
{
    return m_values.size();
}
