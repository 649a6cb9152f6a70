#include "styles/UserDefaultsArchiving.h"

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/Unicode.h"

namespace {

NSError noDataError()
{
    auto description = UTF8FromUTF16(NSBundle::mainBundle().localizedStringForKey(u"No such value."));
    return {CVLUserDefaultsArchivingErrorDomain,
            CVLUserDefaultsArchivingNoDataErrorCode,
            {{std::string(NSLocalizedDescriptionKey), std::move(description)}}};
}

// Both the domain and the code must differ: a missing value is no failure worth a line, and an error of
// another domain that happens to have the same code goes unlogged with it.
bool isWorthLogging(const NSError& error)
{
    return error.domain() != CVLUserDefaultsArchivingErrorDomain
        && error.code() != CVLUserDefaultsArchivingNoDataErrorCode;
}

} // namespace

namespace TSExtensions {

bool archiveObject(NSUserDefaults& defaults, const NSAny& object, std::u16string_view forKey, NSError* error)
{
    auto data = NSKeyedArchiver::archivedDataWithRootObject(object, true, error);
    const bool isArchived = data.has_value();
    defaults.setObject(isArchived ? NSAny(*std::move(data)) : NSAny(), forKey);
    return isArchived;
}

NSAny unarchiveObjectOfClass(const NSUserDefaults& defaults, const NSClass& accepted,
                             std::u16string_view forKey, const NSClassTable& classes, NSError* error)
{
    NSError failure;
    NSAny object;
    if (const auto data = defaults.dataForKey(forKey))
        object = NSKeyedUnarchiver::unarchivedObjectOfClass(accepted, data->bytes, classes, &failure);
    else
        failure = noDataError();
    if (!object.isNil())
        return object;
    if (isWorthLogging(failure))
        NSLog("Error unarchiving defaults object {}: {}", UTF8FromUTF16(forKey),
              failure.localizedDescription());
    setError(error, std::move(failure));
    return nullptr;
}

} // namespace TSExtensions
