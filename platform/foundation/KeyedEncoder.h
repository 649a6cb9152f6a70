#pragma once

#include "platform/foundation/BinaryPropertyListWriter.h"
#include "platform/foundation/OneWayCoder.h"

#include <unordered_map>
#include <unordered_set>

/// Writes objects into one archive as they are given. `NSKeyedArchiver` is its public face.
///
/// The objects stand in the order in which they are met, a class's record behind the first object of the
/// class. Texts, numbers and data are written once for each value, collections and objects once for each
/// identity.
class KeyedEncoder final : public EncodingCoder {
public:
    KeyedEncoder();

    void encodeObject(const NSAny& object, std::string_view key) override;
    void encodeBool(bool value, std::string_view key) override;
    void encodeInteger(std::int64_t value, std::string_view key) override;
    void encodeFloat(float value, std::string_view key) override;
    void encodeDouble(double value, std::string_view key) override;
    void encodeBytes(std::string_view bytes, std::string_view key) override;
    void encodeInlineString(std::u16string_view text, std::string_view key) override;
    void encodeArrayOfObjects(std::span<const NSAny> objects, std::string_view key) override;
    void encodeMutableString(std::u16string_view text, std::string_view key) override;
    void encodeMutableData(std::string_view bytes, std::string_view key) override;
    void encodeMutableArray(std::span<const NSAny> objects, std::string_view key) override;

    [[nodiscard]] bool requiresSecureCoding() const override { return false; }

    void failWithError(NSError error) override;

    [[nodiscard]] const NSError* error() const override { return m_error ? &*m_error : nullptr; }

    /// The archive whose top level holds what was encoded. None when something failed, with the
    /// reason in `error`.
    [[nodiscard]] std::optional<std::string> finish(NSError* error);

private:
    using Reference = BinaryPropertyListWriter::Reference;
    using UID = std::uint64_t;

    /// The keys and values of the object that is being encoded.
    struct Frame {
        std::vector<Reference> keys;
        std::vector<Reference> values;
    };

    void fail(std::string_view reason);
    void add(std::string_view key, Reference value);
    [[nodiscard]] UID newUID();
    [[nodiscard]] UID UIDFor(const NSAny& object);
    [[nodiscard]] UID UIDForLeaf(Reference leaf);
    [[nodiscard]] UID UIDForShared(const NSAny& object);
    [[nodiscard]] UID UIDForClass(const NSClass& archived);
    template <typename Encode> UID encodeNew(const NSClass& archived, const Encode& encode);
    void encodeContents(const NSAny& object);
    void encodeDictionary(const NSAny::Dictionary& dictionary);

    BinaryPropertyListWriter m_writer;
    /// What each UID stands for.
    std::vector<Reference> m_objects;
    /// The UIDs of the writer's values by their references; 0 where a value is no object.
    std::vector<UID> m_leaves;
    std::unordered_map<const void*, UID> m_shared;
    /// Keeps what was written alive: an address must not come to mean another object.
    std::vector<NSAny> m_kept;
    std::unordered_set<UID> m_open;
    std::unordered_map<std::string_view, UID> m_classes;
    Frame m_top;
    Frame* m_frame = &m_top;
    unsigned m_depth = 0;
    std::optional<NSError> m_error;
};
