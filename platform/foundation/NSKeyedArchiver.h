#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <optional>
#include <string>

/// The key of an archive's one object.
inline constexpr std::string_view NSKeyedArchiveRootObjectKey = "root";

/// Writes objects in the platform's keyed form, a binary property list.
class NSKeyedArchiver {
public:
    /// An archive of `object` under NSKeyedArchiveRootObjectKey. Values are those of NSAny; objects among
    /// them derive from NSCoding. With `requiringSecureCoding` the bytes are the same; an object that is no
    /// NSCoding fails in either case. None, with the reason in `error`, when something cannot be archived.
    [[nodiscard]] static std::optional<NSData>
    archivedDataWithRootObject(const NSAny& object, bool requiringSecureCoding, NSError* error = nullptr);
};
