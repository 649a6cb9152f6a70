#include "platform/drawing/NSWorkspace.h"

#include "platform/drawing/DocumentIcon.h"
#include "platform/drawing/FolderIcon.h"
#include "platform/types/UTType.h"

namespace {

/// Packages are folders on the disk and documents to people.
bool isFolder(const UTType& type)
{
    return type.conformsToType("public.directory") && !type.conformsToType("com.apple.package");
}

} // namespace

NSImage::Ref NSWorkspace::iconForContentType(const UTType& contentType)
{
    if (isFolder(contentType))
        return NSImage::imageWithSize({kIconSide, kIconSide}, Flipped::No, drawFolderIcon);
    return NSImage::imageWithSize(
        {kIconSide, kIconSide}, Flipped::No,
        [&kind = iconKindOfType(contentType),
         extension = contentType.preferredFilenameExtension().value_or("")](NSGraphicsContext& context) {
            drawDocumentIcon(kind, extension, context);
        });
}
