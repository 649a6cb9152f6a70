#pragma once

#include "platform/foundation/NSClassTable.h"
#include "platform/foundation/NSUserDefaults.h"

/// Errors of reading archived objects from the user defaults.
inline constexpr std::string_view CVLUserDefaultsArchivingErrorDomain = "CVLUserDefaultsArchivingErrorDomain";
/// There is nothing under the key.
inline constexpr int CVLUserDefaultsArchivingNoDataErrorCode = 10001;

/// Objects in the user defaults, as archives under keys.
namespace TSExtensions {

/// Archives the object and stores the data under the key. What cannot be archived removes the key and gives
/// false, with the reason in `error`. Whether the data reached the file, NSUserDefaults::synchronize says.
bool archiveObject(NSUserDefaults& defaults, const NSAny& object, std::u16string_view forKey,
                   NSError* error = nullptr);

/// The object under the key, of the class or one derived from it; `classes` are those that can be made. Nil
/// with the reason in `error` when there is none: NoData when there is no data under the key. Other failures
/// are logged, except those whose code is 10001 in whatever domain.
[[nodiscard]] NSAny unarchiveObjectOfClass(const NSUserDefaults& defaults, const NSClass& accepted,
                                           std::u16string_view forKey, const NSClassTable& classes,
                                           NSError* error = nullptr);

} // namespace TSExtensions
