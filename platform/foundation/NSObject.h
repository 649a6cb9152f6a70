#pragma once

#include <cstddef>
#include <typeinfo>

/// The root of the platform's classes. Classes of values allow copying; for the rest an object is its
/// identity.
class NSObject {
public:
    NSObject() = default;
    virtual ~NSObject() = default;

    /// Whether the two are equal as values. Without an override: whether they are one object.
    [[nodiscard]] virtual bool isEqual(const NSObject& other) const { return this == &other; }

    /// Equal objects have equal hashes.
    [[nodiscard]] virtual std::size_t hash() const;

    /// Whether the object is of the class itself and not of one derived from it.
    template <typename Class> [[nodiscard]] bool isExactly() const { return typeid(*this) == typeid(Class); }

protected:
    NSObject(const NSObject&) = default;
    NSObject& operator=(const NSObject&) = default;
};
