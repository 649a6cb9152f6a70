#include "platform/text/NSFont.h"

#include "platform/foundation/NSCoder.h"
#include "platform/text/FontCatalog.h"
#include "platform/text/FontCoding.h"
#include "platform/text/FontFace.h"

#include <cmath>
#include <functional>
#include <utility>

namespace {

constexpr std::u16string_view kUserFontName = u"Helvetica";
constexpr std::u16string_view kUserFixedPitchFontName = u"Menlo-Regular";

/// Beyond any size that text is set in; what an archive says may be anything.
constexpr double kMaximumPointSize = 16384;

double usableSize(double size)
{
    return size > 0 && size <= kMaximumPointSize ? size : NSFont::kDefaultSize;
}

std::u16string textOf(const NSAny& value)
{
    return value.string() ? *value.string() : std::u16string();
}

/// What a descriptor's traits ask for.
struct WantedTraits {
    unsigned traits = 0;
    double weight = NSFontWeightRegular;
};

WantedTraits wantedTraits(const NSFontDescriptor& descriptor)
{
    WantedTraits wanted;
    const auto value = descriptor.objectForKey(NSFontTraitsAttribute);
    const auto* traits = value.dictionary();
    if (!traits)
        return wanted;
    if (const auto symbolic = traits->find(NSFontSymbolicTrait); symbolic != traits->end()) {
        wanted.traits = static_cast<unsigned>(symbolic->second.integerValue() & 0xffff);
        if (wanted.traits & NSFontBoldTrait)
            wanted.weight = NSFontWeightBold;
    }
    if (const auto slant = traits->find(NSFontSlantTrait);
        slant != traits->end() && slant->second.doubleValue() > 0)
        wanted.traits |= NSFontItalicTrait;
    if (const auto width = traits->find(NSFontWidthTrait); width != traits->end()) {
        if (width->second.doubleValue() < 0)
            wanted.traits |= NSFontCondensedTrait;
        if (width->second.doubleValue() > 0)
            wanted.traits |= NSFontExpandedTrait;
    }
    if (const auto weight = traits->find(NSFontWeightTrait); weight != traits->end())
        wanted.weight = weight->second.doubleValue();
    return wanted;
}

std::shared_ptr<const FontFace> faceForDescriptor(const NSFontDescriptor& descriptor)
{
    if (auto named = faceNamed(descriptor.postscriptName()))
        return named;
    const auto faces = facesOfFamily(textOf(descriptor.objectForKey(NSFontFamilyAttribute)));
    if (const auto faceName = textOf(descriptor.objectForKey(NSFontFaceAttribute)); !faceName.empty()) {
        for (const auto& face : faces) {
            if (face->faceName == faceName)
                return face;
        }
    }
    const auto wanted = wantedTraits(descriptor);
    constexpr unsigned kShape = NSFontItalicTrait | NSFontCondensedTrait | NSFontExpandedTrait;
    // A family without such a shape gives its plain one, and one without a plain shape what it has.
    for (const auto mask : {kShape, NSFontItalicTrait | 0U, 0U}) {
        if (auto face = nearestFace(faces, wanted.traits, mask, wanted.weight))
            return face;
    }
    return nullptr;
}

} // namespace

NSFont::NSFont(std::shared_ptr<const FontFace> face, double pointSize)
    : m_face(std::move(face))
    , m_pointSize(pointSize)
{
}

NSFont::Ref NSFont::make(std::shared_ptr<const FontFace> face, double pointSize)
{
    if (!face)
        return nullptr;
    return std::make_shared<NSFont>(NSFont(std::move(face), usableSize(pointSize)));
}

NSFont::Ref NSFont::fontWithName(std::u16string_view postScriptName, double size)
{
    return make(faceNamed(postScriptName), size);
}

NSFont::Ref NSFont::fontWithDescriptor(const NSFontDescriptor& descriptor, double size)
{
    return make(faceForDescriptor(descriptor), size > 0 ? size : descriptor.pointSize());
}

NSFont::Ref NSFont::systemFontOfSize(double size, NSFontWeight weight)
{
    return make(nearestFace(facesOfFamily(kSystemFontFamily), 0, NSFontItalicTrait, weight), size);
}

NSFont::Ref NSFont::boldSystemFontOfSize(double size)
{
    return systemFontOfSize(size, NSFontWeightBold);
}

NSFont::Ref NSFont::userFontOfSize(double size)
{
    return fontWithName(kUserFontName, size);
}

NSFont::Ref NSFont::userFixedPitchFontOfSize(double size)
{
    return fontWithName(kUserFixedPitchFontName, size);
}

const std::u16string& NSFont::fontName() const
{
    return m_face->postScriptName;
}

const std::u16string& NSFont::familyName() const
{
    return m_face->familyName;
}

std::u16string NSFont::displayName() const
{
    if (m_face->faceName.empty() || m_face->faceName == u"Regular")
        return m_face->familyName;
    return m_face->familyName + u" " + m_face->faceName;
}

const std::u16string& NSFont::faceName() const
{
    return m_face->faceName;
}

double NSFont::ascender() const
{
    return m_face->metrics.ascender * m_pointSize;
}

double NSFont::descender() const
{
    return m_face->metrics.descender * m_pointSize;
}

double NSFont::leading() const
{
    return m_face->metrics.leading * m_pointSize;
}

double NSFont::capHeight() const
{
    return m_face->metrics.capHeight * m_pointSize;
}

double NSFont::xHeight() const
{
    return m_face->metrics.xHeight * m_pointSize;
}

double NSFont::underlinePosition() const
{
    return m_face->metrics.underlinePosition * m_pointSize;
}

double NSFont::underlineThickness() const
{
    return m_face->metrics.underlineThickness * m_pointSize;
}

bool NSFont::isFixedPitch() const
{
    return (m_face->traits & NSFontMonoSpaceTrait) != 0;
}

NSFontWeight NSFont::weight() const
{
    return descriptorWeight(m_face->weight);
}

unsigned NSFont::symbolicTraits() const
{
    return m_face->traits;
}

NSFontDescriptor::Ref NSFont::fontDescriptor() const
{
    return NSFontDescriptor::fontDescriptorWithName(m_face->postScriptName, m_pointSize);
}

bool NSFont::isEqual(const NSObject& other) const
{
    const auto* font = dynamic_cast<const NSFont*>(&other);
    return font && font->m_pointSize == m_pointSize && font->fontName() == fontName();
}

std::size_t NSFont::hash() const
{
    return std::hash<std::u16string>()(fontName()) ^ std::hash<double>()(m_pointSize);
}

const NSClass& NSFont::classObject()
{
    static constexpr NSClass kClass{"NSFont", &NSObjectClass, &FontCoding::fontFromCoder};
    return kClass;
}

const NSClass& NSFont::classForCoder() const
{
    return classObject();
}

void NSFont::encodeWithCoder(NSCoder& coder) const
{
    // The number of a font that was chosen by its name; readers pass over it.
    constexpr int kFontByName = 16;
    coder.encodeObject(fontName(), "NSName");
    coder.encodeDouble(m_pointSize, "NSSize");
    coder.encodeInteger(kFontByName, "NSfFlags");
}
