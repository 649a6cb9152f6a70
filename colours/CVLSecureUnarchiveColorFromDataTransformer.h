#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoder.h"
#include "platform/text/NSColor.h"

/// Turns archived data into the colour in it, and a colour into such data. Holds nothing.
class CVLSecureUnarchiveColorFromDataTransformer {
public:
    /// The only classes whose objects may be a root of the data: NSColor.
    [[nodiscard]] static const NSClassList& allowedTopLevelClasses();

    [[nodiscard]] static bool allowsReverseTransformation() { return true; }

    /// The colour archived in a data value; nil for anything else, with a line in the log when there was data
    /// that is no archived colour.
    [[nodiscard]] NSAny transformedValue(const NSAny& data) const;
    /// The data of a colour; nil for anything else.
    [[nodiscard]] NSAny reverseTransformedValue(const NSAny& color) const;
};
