#include "platform/foundation/NSSet.h"

#include "platform/foundation/KeyedCollections.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {

/// How many members with one hash are looked through for an equal one.
constexpr unsigned kMaximumCandidateCount = 64;

using MembersByHash = std::unordered_multimap<std::size_t, const NSAny*>;

/// Takes one member equal to `member` out.
bool takeEqual(MembersByHash& members, const NSAny& member)
{
    const auto [first, last] = members.equal_range(member.hash());
    unsigned tried = 0;
    for (auto candidate = first; candidate != last && tried < kMaximumCandidateCount; ++candidate, ++tried) {
        if (*candidate->second == member) {
            members.erase(candidate);
            return true;
        }
    }
    return false;
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
    if (set->m_members == m_members)
        return true;
    MembersByHash rest;
    for (const auto& member : set->m_members)
        rest.emplace(member.hash(), &member);
    return std::all_of(m_members.begin(), m_members.end(),
                       [&rest](const NSAny& member) { return takeEqual(rest, member); });
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
