#include "platform/foundation/NSNull.h"

namespace {

NSAny decodeNull(NSCoder& /*coder*/)
{
    return NSNull::null();
}

} // namespace

const NSClass& NSNull::classObject()
{
    static const NSClass object{"NSNull", &NSObjectClass, decodeNull};
    return object;
}

NSAny NSNull::null()
{
    static const auto null = std::make_shared<const NSNull>();
    return null;
}

bool NSNull::isEqual(const NSObject& other) const
{
    return other.isExactly<NSNull>();
}
