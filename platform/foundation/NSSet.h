#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"

/// Members without an order that counts. They keep the one they were given in.
class NSSet final : public NSCoding {
public:
    /// The members must differ from one another.
    explicit NSSet(NSAny::Array members)
        : m_members(std::move(members))
    {
    }

    [[nodiscard]] static const NSClass& classObject();
    /// Read as the plain class is.
    [[nodiscard]] static const NSClass& mutableClassObject();

    [[nodiscard]] const NSAny::Array& members() const { return m_members; }

    [[nodiscard]] bool containsObject(const NSAny& object) const;

    /// Whether both have the same members. Members whose hashes are alike by the hundred are compared in
    /// order only.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;

    [[nodiscard]] std::size_t hash() const override { return m_members.size(); }

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    void encodeWithCoder(NSCoder& coder) const override;

private:
    NSAny::Array m_members;
};

/// Members in an order that counts.
class NSOrderedSet final : public NSCoding {
public:
    /// The members must differ from one another.
    explicit NSOrderedSet(NSAny::Array members)
        : m_members(std::move(members))
    {
    }

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] static const NSClass& mutableClassObject();

    [[nodiscard]] const NSAny::Array& members() const { return m_members; }

    [[nodiscard]] bool isEqual(const NSObject& other) const override;

    [[nodiscard]] std::size_t hash() const override { return m_members.size(); }

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    void encodeWithCoder(NSCoder& coder) const override;

private:
    NSAny::Array m_members;
};
