#include "platform/foundation/NSCoder.h"

bool NSClass::isSubclassOfClass(const NSClass& other) const
{
    for (const auto* ancestor = this; ancestor; ancestor = ancestor->superclass) {
        if (ancestor == &other)
            return true;
    }
    return false;
}

std::optional<std::u16string> NSCoder::decodeStringForKey(std::string_view key)
{
    const auto value = decodeObjectOfClass(NSStringClass, key);
    return value.string() ? std::optional(*value.string()) : std::nullopt;
}
