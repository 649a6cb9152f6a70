#include "platform/foundation/KeyedDecoder.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/Unicode.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace {

using Kind = BinaryPropertyList::Kind;

/// Dictionaries with more keys than this are indexed before they are searched.
constexpr std::size_t kSearchedKeyCount = 16;

/// The class that a value without an object of its own stands for; null for what is no such value.
const NSClass* classOfLeaf(Kind kind)
{
    switch (kind) {
    case Kind::Boolean:
    case Kind::Integer:
    case Kind::Real:
        return &NSNumberClass;
    case Kind::Text:
        return &NSStringClass;
    case Kind::Data:
        return &NSDataClass;
    case Kind::Date:
        return &NSDateClass;
    default:
        return nullptr;
    }
}

void insert(std::vector<const NSClass*>& classes, const NSClass* met)
{
    if (std::find(classes.begin(), classes.end(), met) == classes.end())
        classes.push_back(met);
}

} // namespace

/// Puts a list of classes in force while it lives.
class KeyedDecoder::Acceptance {
public:
    Acceptance(KeyedDecoder& decoder, const NSClassList& classes)
        : m_decoder(decoder)
        , m_previous(std::exchange(decoder.m_accepted, &classes))
    {
    }

    Acceptance(const Acceptance&) = delete;
    Acceptance& operator=(const Acceptance&) = delete;

    ~Acceptance() { m_decoder.m_accepted = m_previous; }

private:
    KeyedDecoder& m_decoder;
    const NSClassList* m_previous;
};

KeyedDecoder::KeyedDecoder(KeyedArchive archive, const NSClassTable& classes)
    : m_archive(std::move(archive))
    , m_classes(m_archive, classes)
    , m_slotNumbers(m_archive.objectCount())
{
    m_top.dictionary = m_archive.top();
}

void KeyedDecoder::failWithError(NSError error)
{
    if (!m_error)
        m_error = std::move(error);
}

void KeyedDecoder::fail(std::string_view reason)
{
    failWithError(NSError::errorWithCode(NSCocoaError::CoderReadCorrupt, reason));
}

bool KeyedDecoder::count(std::uint64_t more)
{
    m_frame->expandedCount += more;
    if (m_frame->expandedCount <= kMaximumExpandedCount + m_archive.objectCount())
        return true;
    fail("The archive's shared objects grow without bound.");
    return false;
}

void KeyedDecoder::indexKeys(Frame& frame) const
{
    const auto& list = m_archive.list();
    for (std::size_t index = 0; index < list.count(frame.dictionary); ++index) {
        const auto key = list.key(frame.dictionary, index);
        if (list.kind(key) == Kind::Text)
            frame.index.emplace(UTF8FromUTF16(*list.value(key).string()),
                                list.entryValue(frame.dictionary, index));
    }
}

std::optional<KeyedDecoder::Reference> KeyedDecoder::valueForKey(std::string_view key) const
{
    if (m_error)
        return std::nullopt;
    const auto& list = m_archive.list();
    if (list.count(m_frame->dictionary) <= kSearchedKeyCount)
        return list.valueForKey(m_frame->dictionary, key);
    if (m_frame->index.empty())
        indexKeys(*m_frame);
    const auto found = m_frame->index.find(key);
    return found == m_frame->index.end() ? std::nullopt : std::optional(found->second);
}

bool KeyedDecoder::containsValueForKey(std::string_view key) const
{
    return valueForKey(key).has_value();
}

bool KeyedDecoder::accept(const NSClass& madeAs)
{
    if (!m_requiresSecureCoding)
        return true;
    const auto isListed = [&madeAs](const NSClass* listed) { return madeAs.isSubclassOfClass(*listed); };
    if (m_accepted && std::any_of(m_accepted->begin(), m_accepted->end(), isListed))
        return true;
    fail(fmt::format("The archive holds an object of class {}, which is none of the classes asked for.",
                     madeAs.name));
    return false;
}

/// An object made under another list than now. Its own class and those that the other list let in within it
/// are looked at again; what its decoder gave a list for stays as it is.
bool KeyedDecoder::acceptAgain(const Slot& slot)
{
    if (!m_requiresSecureCoding || !slot.madeAs)
        return true;
    return accept(*slot.madeAs)
        && std::all_of(slot.inheritedClasses.begin(), slot.inheritedClasses.end(),
                       [this](const NSClass* met) { return accept(*met); });
}

void KeyedDecoder::inherit(const Slot& slot)
{
    if (!m_requiresSecureCoding || !slot.madeAs)
        return;
    insert(m_frame->inheritedClasses, slot.madeAs);
    for (const auto* met : slot.inheritedClasses)
        insert(m_frame->inheritedClasses, met);
}

const ArchivedClass* KeyedDecoder::classOf(Reference object)
{
    const auto& list = m_archive.list();
    const auto reference = list.valueForKey(object, kArchiveClassKey);
    const auto uid = reference ? list.UIDValue(*reference) : std::nullopt;
    return uid ? m_classes.classWithUID(*uid) : nullptr;
}

void KeyedDecoder::leaveOut(const ArchivedClass& unknown)
{
    if (m_requiresSecureCoding)
        return fail(fmt::format("The archive holds an object of the unknown class {}.", unknown.name));
    if (m_classesLeftOut.insert(unknown.name).second)
        NSLog("An archive's objects of the unknown class {} were left out", unknown.name);
}

void KeyedDecoder::decodeLeaf(Reference reference, Slot& slot)
{
    const auto& list = m_archive.list();
    const auto* madeAs = classOfLeaf(list.kind(reference));
    if (!madeAs)
        return fail("The archive has something else where an object should be.");
    if (!accept(*madeAs))
        return;
    slot.madeAs = madeAs;
    slot.value = list.value(reference);
    slot.expandedCount = 1 + list.byteCount(reference) / kBytesPerExpandedValue;
}

void KeyedDecoder::decodeObject(Reference reference, const NSClass& madeAs, Slot& slot)
{
    if (!accept(madeAs))
        return;
    if (m_depth >= kMaximumPropertyListDepth)
        return fail("The archive's objects are nested too deeply.");
    Frame frame{reference};
    auto* const holder = std::exchange(m_frame, &frame);
    ++m_depth;
    slot.madeAs = &madeAs;
    if (count(1 + m_archive.list().count(reference)))
        slot.value = madeAs.initWithCoder(*this);
    --m_depth;
    m_frame = holder;
    slot.expandedCount = frame.expandedCount;
    slot.inheritedClasses = std::move(frame.inheritedClasses);
}

void KeyedDecoder::decodeSlot(Reference reference, Slot& slot)
{
    slot.state = Slot::State::Open;
    if (m_archive.list().kind(reference) != Kind::Dictionary)
        decodeLeaf(reference, slot);
    else if (const auto* archived = classOf(reference); !archived)
        fail("The archive holds an object without a class.");
    else if (!archived->known)
        leaveOut(*archived);
    else
        decodeObject(reference, *archived->known, slot);
    slot.state = Slot::State::Decoded;
}

KeyedDecoder::Slot& KeyedDecoder::slotWithUID(UID uid)
{
    auto& number = m_slotNumbers[static_cast<std::size_t>(uid)];
    if (number == 0) {
        m_slots.emplace_back();
        number = static_cast<std::uint32_t>(m_slots.size());
    }
    return m_slots[number - 1];
}

NSAny KeyedDecoder::objectWithUID(UID uid, List list)
{
    if (uid == 0 || m_error)
        return nullptr;
    if (uid >= m_archive.objectCount()) {
        fail("The archive refers to an object that it does not hold.");
        return nullptr;
    }
    auto& slot = slotWithUID(uid);
    if (slot.state == Slot::State::Open)
        fail("An object of the archive holds itself.");
    else if (slot.state == Slot::State::Unseen)
        decodeSlot(m_archive.object(uid), slot);
    else if (!acceptAgain(slot))
        return nullptr;
    if (m_error || !count(slot.expandedCount))
        return nullptr;
    if (list == List::Enclosing)
        inherit(slot);
    return slot.value;
}

/// Some classes keep values in themselves that others keep as objects.
NSAny KeyedDecoder::inlineValue(Reference reference, List list)
{
    Slot slot;
    decodeLeaf(reference, slot);
    if (m_error || !count(slot.expandedCount))
        return nullptr;
    if (list == List::Enclosing)
        inherit(slot);
    return slot.value;
}

NSAny KeyedDecoder::decodeKey(std::string_view key, List list)
{
    const auto reference = valueForKey(key);
    if (!reference)
        return nullptr;
    if (m_archive.list().kind(*reference) != Kind::UID)
        return inlineValue(*reference, list);
    // A UID beyond 64 bits is beyond all objects.
    return objectWithUID(m_archive.list().UIDValue(*reference).value_or(UINT64_MAX), list);
}

std::vector<NSAny> KeyedDecoder::decodeArray(std::string_view key, List list)
{
    const auto reference = valueForKey(key);
    const auto& values = m_archive.list();
    if (!reference)
        return {};
    if (values.kind(*reference) != Kind::Array) {
        fail("The archive has something else where a list of objects should be.");
        return {};
    }
    std::vector<NSAny> objects;
    objects.reserve(values.count(*reference));
    for (std::size_t index = 0; index < values.count(*reference) && !m_error; ++index) {
        const auto element = values.element(*reference, index);
        if (values.kind(element) != Kind::UID)
            fail("The archive has something else where a reference should be.");
        objects.push_back(objectWithUID(values.UIDValue(element).value_or(UINT64_MAX), list));
    }
    return m_error ? std::vector<NSAny>() : objects;
}

NSAny KeyedDecoder::decodeObjectForKey(std::string_view key)
{
    return decodeKey(key, List::Enclosing);
}

NSAny KeyedDecoder::decodeObjectOfClasses(const NSClassList& classes, std::string_view key)
{
    const Acceptance acceptance(*this, classes);
    return decodeKey(key, List::Own);
}

std::vector<NSAny> KeyedDecoder::decodeArrayOfObjectsForKey(std::string_view key)
{
    return decodeArray(key, List::Enclosing);
}

std::vector<NSAny> KeyedDecoder::decodeArrayOfObjectsOfClasses(const NSClassList& classes,
                                                               std::string_view key)
{
    const Acceptance acceptance(*this, classes);
    return decodeArray(key, List::Own);
}

NSAny KeyedDecoder::numberForKey(std::string_view key) const
{
    const auto& list = m_archive.list();
    auto reference = valueForKey(key);
    if (reference && list.kind(*reference) == Kind::UID) {
        const auto uid = list.UIDValue(*reference);
        if (!uid || *uid >= m_archive.objectCount())
            return nullptr;
        reference = m_archive.object(*uid);
    }
    return reference && classOfLeaf(list.kind(*reference)) == &NSNumberClass ? list.value(*reference)
                                                                             : NSAny();
}

bool KeyedDecoder::decodeBoolForKey(std::string_view key)
{
    return numberForKey(key).boolValue();
}

std::int64_t KeyedDecoder::decodeIntegerForKey(std::string_view key)
{
    return numberForKey(key).integerValue();
}

double KeyedDecoder::decodeDoubleForKey(std::string_view key)
{
    return numberForKey(key).doubleValue();
}

std::optional<std::string> KeyedDecoder::decodeBytesForKey(std::string_view key)
{
    if (!valueForKey(key))
        return std::nullopt;
    const auto value = decodeObjectOfClasses({&NSDataClass}, key);
    return value.data() ? std::optional(value.data()->bytes) : std::nullopt;
}
