#include "platform/foundation/NSObject.h"

#include <functional>

std::size_t NSObject::hash() const
{
    return std::hash<const NSObject*>()(this);
}
