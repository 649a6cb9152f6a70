#pragma once

#include "platform/foundation/KeyedArchive.h"
#include "platform/foundation/OneWayCoder.h"

#include <deque>
#include <map>
#include <set>

/// Makes the objects of one archive as they are asked for, each once. `NSKeyedUnarchiver` is its public face.
///
/// Work and memory are bounded by the archive's size and PropertyListLimits.h: the depth of nesting, and the
/// number of values that a walk over everything made would meet, what is shared counted each time. The second
/// bound keeps comparing and hashing what was decoded cheap as well.
class KeyedDecoder final : public DecodingCoder {
public:
    KeyedDecoder(KeyedArchive archive, const NSClassTable& classes);

    void setRequiresSecureCoding(bool requiresSecureCoding) { m_requiresSecureCoding = requiresSecureCoding; }

    [[nodiscard]] bool containsValueForKey(std::string_view key) const override;
    [[nodiscard]] NSAny decodeObjectForKey(std::string_view key) override;
    [[nodiscard]] NSAny decodeObjectOfClasses(const NSClassList& classes, std::string_view key) override;
    [[nodiscard]] std::vector<NSAny> decodeArrayOfObjectsForKey(std::string_view key) override;
    [[nodiscard]] std::vector<NSAny> decodeArrayOfObjectsOfClasses(const NSClassList& classes,
                                                                   std::string_view key) override;
    [[nodiscard]] bool decodeBoolForKey(std::string_view key) override;
    [[nodiscard]] std::int64_t decodeIntegerForKey(std::string_view key) override;
    [[nodiscard]] double decodeDoubleForKey(std::string_view key) override;
    [[nodiscard]] std::optional<std::string> decodeBytesForKey(std::string_view key) override;

    [[nodiscard]] bool requiresSecureCoding() const override { return m_requiresSecureCoding; }

    void failWithError(NSError error) override;

    [[nodiscard]] const NSError* error() const override { return m_error ? &*m_error : nullptr; }

private:
    using Reference = KeyedArchive::Reference;
    using UID = KeyedArchive::UID;
    using Classes = std::vector<const NSClass*>;

    /// Whether an object is decoded under the list of classes that its holder is decoded under, or under one
    /// that its holder gave for it.
    enum class List { Enclosing, Own };

    /// The dictionary whose keys are asked for, and what was met while it was decoded.
    struct Frame {
        Reference dictionary = 0;
        std::uint64_t expandedCount = 0;
        /// What was accepted because the enclosing list has it. When the object is asked for again under
        /// another list, these are looked at again.
        Classes inheritedClasses{};
        /// Filled for dictionaries too long to be searched key by key.
        std::map<std::string, Reference, std::less<>> index{};
    };

    /// An object of the archive as far as it is decoded.
    struct Slot {
        enum class State : std::uint8_t { Unseen, Open, Decoded };

        NSAny value{};
        const NSClass* madeAs = nullptr;
        std::uint64_t expandedCount = 1;
        Classes inheritedClasses{};
        State state = State::Unseen;
    };

    class Acceptance;

    void fail(std::string_view reason);
    [[nodiscard]] bool count(std::uint64_t more);

    [[nodiscard]] std::optional<Reference> valueForKey(std::string_view key) const;
    void indexKeys(Frame& frame) const;
    /// The number under the key, inline or as an object; nil when there is none.
    [[nodiscard]] NSAny numberForKey(std::string_view key) const;

    [[nodiscard]] NSAny decodeKey(std::string_view key, List list);
    [[nodiscard]] std::vector<NSAny> decodeArray(std::string_view key, List list);
    [[nodiscard]] NSAny inlineValue(Reference reference, List list);
    [[nodiscard]] NSAny objectWithUID(UID uid, List list);
    [[nodiscard]] Slot& slotWithUID(UID uid);
    void decodeSlot(Reference reference, Slot& slot);
    void decodeLeaf(Reference reference, Slot& slot);
    void decodeObject(Reference reference, const NSClass& madeAs, Slot& slot);
    [[nodiscard]] const ArchivedClass* classOf(Reference object);
    void leaveOut(const ArchivedClass& unknown);

    [[nodiscard]] bool accept(const NSClass& madeAs);
    [[nodiscard]] bool acceptAgain(const Slot& slot);
    void inherit(const Slot& slot);

    KeyedArchive m_archive;
    ArchivedClasses m_classes;
    /// Where the object of a UID lies in the slots, counted from 1; 0 while it is unseen.
    std::vector<std::uint32_t> m_slotNumbers;
    std::deque<Slot> m_slots;
    Frame m_top;
    Frame* m_frame = &m_top;
    unsigned m_depth = 0;
    /// Null: no operation gave a list.
    const NSClassList* m_accepted = nullptr;
    bool m_requiresSecureCoding = true;
    std::optional<NSError> m_error;
    std::set<std::string, std::less<>> m_classesLeftOut;
};
