#include "note/NoteAttributes.h"

#include "colours/ColourForms.h"
#include "note/NotePackage.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSPropertyList.h"

#include <algorithm>
#include <span>

namespace {

NSAny valueForKey(const NSAny& propertyList, std::u16string_view key)
{
    const auto* dictionary = propertyList.dictionary();
    const auto found = dictionary ? dictionary->find(key) : NSAny::Dictionary::const_iterator();
    return dictionary && found != dictionary->end() ? found->second : NSAny();
}

std::vector<NSRange> rangesOf(const NSAny& value)
{
    std::vector<NSRange> ranges;
    const auto* array = value.array();
    if (!array)
        return ranges;
    const auto count = std::min(array->size(), NoteAttributes::kMostDividerRanges);
    if (count < array->size())
        NSLog("A note names {} dividers; the first ones stay as text", array->size());
    for (const auto& element : std::span(*array).last(count))
        if (const auto* text = element.string())
            ranges.push_back(NSRangeFromString(*text));
    return ranges;
}

} // namespace

NoteAttributes NoteAttributes::attributesFromData(std::string_view data)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(data);
    NoteAttributes attributes;
    attributes.showSmallImages = valueForKey(list, kNoteShowSmallImagesKey).boolValue();
    if (const auto color = valueForKey(list, kNoteBackgroundColorKey); color.dictionary())
        attributes.backgroundColor = CVLExtensions::colorFromPropertyListRepresentation(*color.dictionary());
    attributes.dividerRanges = rangesOf(valueForKey(list, kNoteDividerRangesKey));
    if (auto drawings = valueForKey(list, kNoteDrawingsDataKey); drawings.dictionary())
        attributes.drawingDataByAttachmentKey = std::move(drawings);
    attributes.usesColorTypes = valueForKey(list, kNoteUsesColorTypesKey).boolValue();
    return attributes;
}
