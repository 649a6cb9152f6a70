#include "colours/CVLSecureUnarchiveColorFromDataTransformer.h"

#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/text/TextClasses.h"

const NSClassList& CVLSecureUnarchiveColorFromDataTransformer::allowedTopLevelClasses()
{
    static const NSClassList classes{&NSColor::classObject()};
    return classes;
}

NSAny CVLSecureUnarchiveColorFromDataTransformer::transformedValue(const NSAny& data) const
{
    if (!data.data())
        return {};
    NSError error;
    auto color = NSKeyedUnarchiver::unarchivedObjectOfClasses(allowedTopLevelClasses(), data.data()->bytes,
                                                              textClasses(), &error);
    if (!color)
        NSLog("Error unarchiving a colour: {}", error.localizedDescription());
    return color;
}

NSAny CVLSecureUnarchiveColorFromDataTransformer::reverseTransformedValue(const NSAny& color) const
{
    if (!color.object<NSColor>())
        return {};
    NSError error;
    auto data = NSKeyedArchiver::archivedDataWithRootObject(color, true, &error);
    if (!data)
        NSLog("Error archiving a colour: {}", error.localizedDescription());
    return data ? NSAny(std::move(*data)) : NSAny();
}
