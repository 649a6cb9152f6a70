#include "platform/text/FontCoding.h"

#include "platform/foundation/NSCoder.h"
#include "platform/text/FontCatalog.h"

NSAny FontCoding::archivedFont(std::u16string_view name, double size)
{
    auto face = faceNamed(name);
    return NSAny(NSFont::make(face ? std::move(face) : standInForFaceNamed(name), size));
}

NSAny FontCoding::fontFromCoder(NSCoder& coder)
{
    const auto name = coder.decodeStringForKey("NSName");
    if (name && !name->empty())
        return archivedFont(*name, coder.decodeDoubleForKey("NSSize"));
    coder.failWithError(
        NSError::errorWithCode(NSCocoaError::CoderReadCorrupt, "An archived font has no name."));
    return {};
}

NSAny FontCoding::fontFromMobileCoder(NSCoder& coder)
{
    const auto name = coder.decodeStringForKey("UIFontName");
    if (name && !name->empty())
        return archivedFont(*name, coder.decodeDoubleForKey("UIFontPointSize"));
    return fontFromCoder(coder);
}

const NSClass& UIFontClass()
{
    static const NSClass kClass{"UIFont", &NSFont::classObject(), &FontCoding::fontFromMobileCoder};
    return kClass;
}
