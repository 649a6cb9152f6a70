#include "platform/foundation/NSPasteboard.h"

#include "platform/foundation/Unicode.h"

#include <algorithm>

namespace {

NSAny objectOfItem(const NSPasteboardItem& item, const NSPasteboardReading& reading)
{
    for (const auto& type : reading.readableTypes) {
        const auto propertyList = item.propertyListForType(type);
        if (propertyList.isNil())
            continue;
        if (auto object = reading.initWithPasteboardPropertyList(propertyList, type))
            return object;
    }
    return {};
}

} // namespace

std::vector<std::u16string> NSPasteboardItem::types() const
{
    std::vector<std::u16string> types;
    types.reserve(m_forms.size());
    for (const auto& [type, form] : m_forms)
        types.push_back(type);
    return types;
}

NSAny NSPasteboardItem::propertyListForType(std::u16string_view type) const
{
    const auto found = std::ranges::find_if(m_forms, [type](const auto& form) { return form.first == type; });
    return found == m_forms.end() ? NSAny() : found->second;
}

std::optional<NSData> NSPasteboardItem::dataForType(std::u16string_view type) const
{
    const auto form = propertyListForType(type);
    if (const auto* data = form.data())
        return *data;
    if (const auto* string = form.string())
        return NSData{UTF8FromUTF16(*string)};
    return std::nullopt;
}

std::optional<std::u16string> NSPasteboardItem::stringForType(std::u16string_view type) const
{
    const auto form = propertyListForType(type);
    if (const auto* string = form.string())
        return *string;
    if (const auto* data = form.data())
        return UTF16FromUTF8(data->bytes);
    return std::nullopt;
}

void NSPasteboardItem::setPropertyList(NSAny propertyList, std::u16string_view type)
{
    const auto found = std::ranges::find_if(m_forms, [type](const auto& form) { return form.first == type; });
    if (found == m_forms.end())
        m_forms.emplace_back(type, std::move(propertyList));
    else
        found->second = std::move(propertyList);
}

bool NSPasteboard::writeObjects(std::span<const std::shared_ptr<const NSPasteboardWriting>> objects)
{
    const auto countBefore = m_items.size();
    for (const auto& object : objects) {
        NSPasteboardItem item;
        for (const auto& type : object->writableTypesForPasteboard())
            if (auto form = object->pasteboardPropertyListForType(type))
                item.setPropertyList(std::move(form), type);
        if (!item.types().empty())
            m_items.push_back(std::move(item));
    }
    return m_items.size() > countBefore;
}

std::vector<NSAny> NSPasteboard::readObjectsForClasses(std::span<const NSPasteboardReading> classes) const
{
    std::vector<NSAny> objects;
    for (const auto& item : m_items) {
        for (const auto& reading : classes) {
            if (auto object = objectOfItem(item, reading)) {
                objects.push_back(std::move(object));
                break;
            }
        }
    }
    return objects;
}
