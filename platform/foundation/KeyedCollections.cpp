#include "platform/foundation/KeyedCollections.h"

#include "platform/foundation/NSObjectKeyedDictionary.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace {

constexpr std::string_view kObjectsKey = "NS.objects";
constexpr std::string_view kKeysKey = "NS.keys";
constexpr std::string_view kIndexedObjectKey = "NS.object.";
constexpr std::string_view kIndexedKeyKey = "NS.key.";

std::string indexedKey(std::string_view prefix, std::size_t index)
{
    return fmt::format("{}{}", prefix, index);
}

const NSClassList& classesOfKeys()
{
    static const NSClassList classes{&NSStringClass, &NSNumberClass, &NSDateClass, &NSDataClass};
    return classes;
}

template <typename Decode>
std::vector<NSAny> decodeIndexed(const NSCoder& coder, std::string_view prefix, const Decode& decode)
{
    std::vector<NSAny> objects;
    for (std::size_t index = 0;; ++index) {
        const auto key = indexedKey(prefix, index);
        if (!coder.containsValueForKey(key))
            return objects;
        objects.push_back(decode(key));
    }
}

/// Takes the entries out whose key or value was left out.
void removeIncomplete(NSObjectKeyedDictionary::Entries& entries)
{
    std::erase_if(entries, [](const auto& entry) { return !entry.first || !entry.second; });
}

NSAny dictionaryWithEntries(NSObjectKeyedDictionary::Entries entries)
{
    const bool areTexts = std::all_of(entries.begin(), entries.end(),
                                      [](const auto& entry) { return entry.first.string() != nullptr; });
    if (!areTexts)
        return std::make_shared<const NSObjectKeyedDictionary>(std::move(entries));
    NSAny::Dictionary dictionary;
    for (auto& [key, value] : entries)
        dictionary.insert_or_assign(*key.string(), std::move(value));
    return dictionary;
}

} // namespace

std::vector<NSAny> decodeCollectionObjects(NSCoder& coder)
{
    if (coder.containsValueForKey(kObjectsKey))
        return coder.decodeArrayOfObjectsForKey(kObjectsKey);
    return decodeIndexed(coder, kIndexedObjectKey,
                         [&coder](std::string_view key) { return coder.decodeObjectForKey(key); });
}

std::vector<NSAny> decodeCollectionKeys(NSCoder& coder)
{
    if (coder.containsValueForKey(kKeysKey))
        return coder.decodeArrayOfObjectsOfClasses(classesOfKeys(), kKeysKey);
    return decodeIndexed(coder, kIndexedKeyKey, [&coder](std::string_view key) {
        return coder.decodeObjectOfClasses(classesOfKeys(), key);
    });
}

void encodeIndexedObjects(NSCoder& coder, std::span<const NSAny> objects)
{
    for (std::size_t index = 0; index < objects.size(); ++index)
        coder.encodeObject(objects[index], indexedKey(kIndexedObjectKey, index));
}

NSAny decodeArray(NSCoder& coder)
{
    auto objects = decodeCollectionObjects(coder);
    std::erase_if(objects, [](const NSAny& object) { return object.isNil(); });
    return objects;
}

NSAny decodeDictionary(NSCoder& coder)
{
    const auto keys = decodeCollectionKeys(coder);
    const auto objects = decodeCollectionObjects(coder);
    if (coder.error())
        return nullptr;
    if (keys.size() != objects.size()) {
        coder.failWithError(NSError::errorWithCode(NSCocoaError::CoderReadCorrupt,
                                                   "A dictionary of the archive has keys without values."));
        return nullptr;
    }
    NSObjectKeyedDictionary::Entries entries;
    entries.reserve(keys.size());
    for (std::size_t index = 0; index < keys.size(); ++index)
        entries.emplace_back(keys[index], objects[index]);
    removeIncomplete(entries);
    return dictionaryWithEntries(std::move(entries));
}
