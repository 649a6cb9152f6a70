#include "platform/foundation/NSSet.h"

#include "platform/foundation/KeyedCollections.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

/// Groups of members with one hash are compared in any order up to this size: more costs its square.
constexpr std::ptrdiff_t kMaximumUnorderedCount = 64;

struct HashedMember {
    std::size_t hash;
    const NSAny* member;

    friend bool operator==(const HashedMember& one, const HashedMember& other)
    {
        return one.hash == other.hash && *one.member == *other.member;
    }
};

std::vector<HashedMember> sortedByHash(const NSAny::Array& members)
{
    std::vector<HashedMember> sorted;
    sorted.reserve(members.size());
    for (const auto& member : members)
        sorted.push_back({member.hash(), &member});
    std::stable_sort(sorted.begin(), sorted.end(), [](const HashedMember& one, const HashedMember& other) {
        return one.hash < other.hash;
    });
    return sorted;
}

bool haveEqualMembers(const std::vector<HashedMember>& one, const std::vector<HashedMember>& other)
{
    auto theirs = other.begin();
    for (auto group = one.begin(); group != one.end();) {
        const auto end = std::find_if(group, one.end(), [hash = group->hash](const HashedMember& member) {
            return member.hash != hash;
        });
        const auto count = end - group;
        const bool areEqual = count <= kMaximumUnorderedCount
            ? std::is_permutation(group, end, theirs, theirs + count)
            : std::equal(group, end, theirs);
        if (!areEqual)
            return false;
        group = end;
        theirs += count;
    }
    return true;
}

NSAny::Array decodeMembers(NSCoder& coder)
{
    auto members = decodeCollectionObjects(coder);
    std::erase_if(members, [](const NSAny& member) { return member.isNil(); });
    return members;
}

NSAny decodeSet(NSCoder& coder)
{
    return std::make_shared<const NSSet>(decodeMembers(coder));
}

NSAny decodeOrderedSet(NSCoder& coder)
{
    return std::make_shared<const NSOrderedSet>(decodeMembers(coder));
}

} // namespace

const NSClass& NSSet::classObject()
{
    static const NSClass object{"NSSet", &NSObjectClass, decodeSet};
    return object;
}

const NSClass& NSSet::mutableClassObject()
{
    static const NSClass object{"NSMutableSet", &classObject(), decodeSet};
    return object;
}

bool NSSet::containsObject(const NSAny& object) const
{
    return std::find(m_members.begin(), m_members.end(), object) != m_members.end();
}

bool NSSet::isEqual(const NSObject& other) const
{
    const auto* set = dynamic_cast<const NSSet*>(&other);
    if (!set || set->m_members.size() != m_members.size())
        return false;
    return haveEqualMembers(sortedByHash(m_members), sortedByHash(set->m_members));
}

void NSSet::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeArrayOfObjects(m_members, "NS.objects");
}

const NSClass& NSOrderedSet::classObject()
{
    static const NSClass object{"NSOrderedSet", &NSObjectClass, decodeOrderedSet};
    return object;
}

const NSClass& NSOrderedSet::mutableClassObject()
{
    static const NSClass object{"NSMutableOrderedSet", &classObject(), decodeOrderedSet};
    return object;
}

bool NSOrderedSet::isEqual(const NSObject& other) const
{
    const auto* set = dynamic_cast<const NSOrderedSet*>(&other);
    return set && set->m_members == m_members;
}

/// Ordered sets are archived in the indexed form only.
void NSOrderedSet::encodeWithCoder(NSCoder& coder) const
{
    encodeIndexedObjects(coder, m_members);
}
