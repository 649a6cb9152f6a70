#include "note/NotePackageWriter.h"

#include "colours/ColourEquality.h"
#include "colours/ColourForms.h"
#include "note/NoteExport.h"
#include "note/NotePackage.h"
#include "note/NoteTextForStorage.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSDocumentAttributes.h"
#include "richtext/DynamicColours.h"

#include <memory>
#include <optional>
#include <utility>

namespace {

using Members = std::map<std::u16string, NSFileWrapper::Ref>;

NSFileWrapper::Ref rtfdOf(const NSAttributedString& noteText, NSError* error)
{
    const auto exported = noteTextForExport(noteText);
    return NSAttributedStringDocumentFormats::RTFDFileWrapperFromRange(
        exported, {0, exported.length()},
        {{std::u16string(NSDocumentTypeDocumentAttribute), NSRTFDTextDocumentType}}, error);
}

std::optional<NSData> archiveOf(const NSAttributedString& text, NSError* error)
{
    return NSKeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const NSAttributedStringObject>(text, NSAttributedStringObject::Form::Mutable),
        false, error);
}

NSAny::Array textualRanges(const std::vector<NSRange>& ranges)
{
    NSAny::Array texts;
    texts.reserve(ranges.size());
    for (const auto range : ranges)
        texts.emplace_back(NSStringFromRange(range));
    return texts;
}

/// The text background follows the appearance, which a stored colour cannot: white stands for it, and readers
/// take white for it. Nil for no colour, and for a pattern, which has no components to store.
NSAny storedBackground(const NSColor::Ref& color)
{
    if (!color)
        return {};
    const auto isTextBackground
        = CVLExtensions::isEqualToColorCVLVersion(*color, *NSColor::textBackgroundColor());
    auto stored
        = CVLExtensions::propertyListRepresentation(isTextBackground ? *NSColor::whiteColor() : *color);
    return stored.empty() ? NSAny() : NSAny(std::move(stored));
}

NSAny::Dictionary noteAttributes(const NotePackageSource& source, const std::vector<NSRange>& dividerRanges)
{
    NSAny::Dictionary attributes{
        {std::u16string(kNoteShowSmallImagesKey), source.showSmallImages},
        {std::u16string(kNoteDividerRangesKey), textualRanges(dividerRanges)},
        {std::u16string(kNoteUsesColorTypesKey), true},
    };
    const auto add = [&attributes](std::u16string_view key, NSAny value) {
        if (!value.isNil())
            attributes.emplace(key, std::move(value));
    };
    const auto& bundle = NSBundle::mainBundle();
    add(kNoteAppIdentifierKey, bundle.objectForInfoDictionaryKey(u"CFBundleIdentifier"));
    add(kNoteAppVersionKey, bundle.objectForInfoDictionaryKey(u"CFBundleShortVersionString"));
    add(kNoteDrawingsDataKey, source.drawingDataByAttachmentKey);
    add(kNoteBackgroundColorKey, storedBackground(source.backgroundColor));
    return attributes;
}

/// A note whose attributes are no property list, for its drawings, is written without them.
void addAttributes(Members& members, const NSAny::Dictionary& attributes)
{
    auto data = NSPropertyListSerialization::dataWithPropertyList(attributes, NSPropertyListFormat::Binary);
    if (data)
        members.insert_or_assign(std::u16string(kNoteAttributesMember),
                                 NSFileWrapper::initRegularFileWithContents(*std::move(data)));
}

} // namespace

NSFileWrapper::Ref notePackage(const NotePackageSource& source, NSError* error)
{
    NSMutableAttributedString text(source.noteText);
    renameFilesThatNoMemberCanBe(text);
    auto package = rtfdOf(text, error);
    if (!package)
        return nullptr;
    removeAttributesNotStored(text);
    auto [members, dividerRanges] = takeAttachments(text, *package);
    DynamicColors::convertFromDynamicColors(text);
    auto archive = archiveOf(text, error);
    if (!archive)
        return nullptr;
    members.insert_or_assign(std::u16string(kNoteTextMember),
                             NSFileWrapper::initRegularFileWithContents(*std::move(archive)));
    addAttributes(members, noteAttributes(source, dividerRanges));
    for (const auto& [name, member] : members) {
        // Files of the note have these names; other threads may be saving them too, in other notes.
        if (member->preferredFilename() != name)
            member->setPreferredFilename(name);
        (void)package->addFileWrapper(member); // Which key it got does not matter: readers look names up.
    }
    return package;
}
