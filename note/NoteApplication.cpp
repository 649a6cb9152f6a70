#include "note/NoteApplication.h"

#include "note/NotePackage.h"
#include "platform/foundation/NSPropertyList.h"

namespace {

std::optional<std::u16string> textForKey(const NSAny::Dictionary& attributes, std::u16string_view key)
{
    const auto found = attributes.find(key);
    const auto* const text = found == attributes.end() ? nullptr : found->second.string();
    return text ? std::optional(*text) : std::nullopt;
}

} // namespace

NoteApplication NoteApplication::applicationOfPackage(const NSFileWrapper& package)
{
    const auto member = package.fileWrapperForKey(kNoteAttributesMember);
    const auto* const data = member ? member->regularFileContents() : nullptr;
    const auto list = data ? NSPropertyListSerialization::propertyListWithData(data->bytes) : NSAny();
    const auto* const attributes = list.dictionary();
    if (!attributes)
        return {};
    return {textForKey(*attributes, kNoteAppIdentifierKey), textForKey(*attributes, kNoteAppVersionKey)};
}
