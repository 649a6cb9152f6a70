#include "platform/foundation/KeyedArchive.h"

#include "platform/foundation/Unicode.h"

#include <utility>

namespace {

using Kind = BinaryPropertyList::Kind;
using Reference = BinaryPropertyList::Reference;

/// Names are compared with those of the table and stand in log lines.
std::string nameOf(const BinaryPropertyList& list, Reference reference)
{
    constexpr std::size_t kMaximumNameLength = 256;
    if (list.kind(reference) != Kind::Text || list.count(reference) > kMaximumNameLength)
        return {};
    return UTF8FromUTF16(*list.value(reference).string());
}

bool hasKnownVersion(const BinaryPropertyList& list)
{
    const auto version = list.valueForKey(list.root(), kArchiveVersionKey);
    return version && list.value(*version) == NSAny(kArchiveVersion);
}

} // namespace

KeyedArchive::KeyedArchive(BinaryPropertyList list, Reference top, Reference objects)
    : m_list(std::move(list))
    , m_top(top)
    , m_objects(objects)
{
}

std::optional<KeyedArchive> KeyedArchive::createWithList(BinaryPropertyList list, NSError* error)
{
    const auto top = list.valueForKey(list.root(), kArchiveTopKey);
    const auto objects = list.valueForKey(list.root(), kArchiveObjectsKey);
    if (top && list.kind(*top) == Kind::Dictionary && objects && list.kind(*objects) == Kind::Array
        && hasKnownVersion(list))
        return KeyedArchive(std::move(list), *top, *objects);
    setError(error,
             NSError::errorWithCode(NSCocoaError::CoderReadCorrupt,
                                    "The data is a property list but no keyed archive."));
    return std::nullopt;
}

const NSClass* ArchivedClasses::decodableClass(std::string_view name) const
{
    const auto* named = m_table.classNamed(name);
    return named && named->initWithCoder ? named : nullptr;
}

std::optional<ArchivedClass> ArchivedClasses::readRecord(KeyedArchive::UID uid) const
{
    if (uid >= m_archive.objectCount())
        return std::nullopt;
    const auto& list = m_archive.list();
    const auto record = m_archive.object(uid);
    const auto nameText = list.valueForKey(record, kArchiveClassNameKey);
    if (!nameText)
        return std::nullopt;
    ArchivedClass found{nameOf(list, *nameText)};
    if (found.name.empty())
        return std::nullopt;
    found.known = decodableClass(found.name);
    const auto chain = list.valueForKey(record, kArchiveClassesKey);
    if (!chain || list.kind(*chain) != Kind::Array)
        return found;
    for (std::size_t index = 0; !found.known && index < list.count(*chain); ++index)
        found.known = decodableClass(nameOf(list, list.element(*chain, index)));
    return found;
}

const ArchivedClass* ArchivedClasses::classWithUID(KeyedArchive::UID uid)
{
    const auto known = m_classes.find(uid);
    if (known != m_classes.end())
        return &known->second;
    auto record = readRecord(uid);
    return record ? &m_classes.emplace(uid, std::move(*record)).first->second : nullptr;
}
