#include "platform/foundation/NSObjectKeyedDictionary.h"

#include "platform/foundation/NSCoder.h"

#include <algorithm>

NSAny NSObjectKeyedDictionary::objectForKey(const NSAny& key) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&key](const auto& entry) { return entry.first == key; });
    return found == m_entries.end() ? NSAny() : found->second;
}

bool NSObjectKeyedDictionary::isEqual(const NSObject& other) const
{
    const auto* dictionary = dynamic_cast<const NSObjectKeyedDictionary*>(&other);
    return dictionary && dictionary->m_entries == m_entries;
}

void NSObjectKeyedDictionary::encodeWithCoder(NSCoder& coder) const
{
    std::vector<NSAny> keys;
    std::vector<NSAny> objects;
    for (const auto& [key, object] : m_entries) {
        keys.push_back(key);
        objects.push_back(object);
    }
    coder.encodeArrayOfObjects(keys, "NS.keys");
    coder.encodeArrayOfObjects(objects, "NS.objects");
}
