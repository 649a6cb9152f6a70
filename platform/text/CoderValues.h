#pragma once

#include "platform/foundation/NSCoder.h"

#include <cmath>
#include <concepts>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/// How the classes of text keep their values in archives: what has its default is left out.

/// The number under the key; `absent` when there is none or it is not finite.
[[nodiscard]] inline double decodeReal(NSCoder& coder, std::string_view key, double absent = 0)
{
    if (!coder.containsValueForKey(key))
        return absent;
    const double value = coder.decodeDoubleForKey(key);
    return std::isfinite(value) ? value : absent;
}

inline void encodeRealUnlessZero(NSCoder& coder, double value, std::string_view key)
{
    if (value != 0)
        coder.encodeDouble(value, key);
}

inline void encodeIntegerUnlessZero(NSCoder& coder, std::int64_t value, std::string_view key)
{
    if (value != 0)
        coder.encodeInteger(value, key);
}

/// Whether the key has a true boolean or a number that is not 0: writers differ.
[[nodiscard]] inline bool decodeFlag(NSCoder& coder, std::string_view key)
{
    return coder.decodeBoolForKey(key) || coder.decodeIntegerForKey(key) != 0;
}

inline void encodeTrue(NSCoder& coder, bool value, std::string_view key)
{
    if (value)
        coder.encodeBool(true, key);
}

/// An array of objects of a class and its subclasses: those under the key that are of it. None when the value
/// is nil or no array.
template <std::derived_from<NSObject> Class>
[[nodiscard]] std::optional<std::vector<std::shared_ptr<const Class>>>
decodeObjects(NSCoder& coder, std::string_view key, const NSClassList& elementClasses)
{
    NSClassList classes = elementClasses;
    classes.push_back(&NSArrayClass);
    const auto value = coder.decodeObjectOfClasses(classes, key);
    if (!value.array())
        return std::nullopt;
    std::vector<std::shared_ptr<const Class>> objects;
    for (const auto& element : *value.array()) {
        if (auto object = element.object<Class>())
            objects.push_back(std::move(object));
    }
    return objects;
}

template <std::derived_from<NSObject> Class>
void encodeObjectsUnlessEmpty(NSCoder& coder, const std::vector<std::shared_ptr<const Class>>& objects,
                              std::string_view key)
{
    if (!objects.empty())
        coder.encodeObject(NSAny(NSAny::Array(objects.begin(), objects.end())), key);
}
