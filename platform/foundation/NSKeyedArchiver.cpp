#include "platform/foundation/NSKeyedArchiver.h"

#include "platform/foundation/KeyedEncoder.h"

#include <utility>

/// Secure coding changes nothing in the bytes.
std::optional<NSData> NSKeyedArchiver::archivedDataWithRootObject(const NSAny& object,
                                                                  bool /*requiringSecureCoding*/,
                                                                  NSError* error)
{
    KeyedEncoder encoder;
    encoder.encodeObject(object, NSKeyedArchiveRootObjectKey);
    auto bytes = encoder.finish(error);
    return bytes ? std::optional(NSData{std::move(*bytes)}) : std::nullopt;
}
