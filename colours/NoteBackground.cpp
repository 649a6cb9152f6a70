#include "colours/NoteBackground.h"

#include "colours/CVLSecureUnarchiveColorFromDataTransformer.h"
#include "colours/ColourEquality.h"
#include "platform/foundation/NSUserDefaults.h"

namespace CVLExtensions {

NSColor::Ref defaultNoteBackgroundColor()
{
    const auto data = NSUserDefaults::standardUserDefaults().dataForKey(CVLNoteDefaultBackgroundColorKey);
    auto stored = CVLSecureUnarchiveColorFromDataTransformer()
                      .transformedValue(data ? NSAny(*data) : NSAny())
                      .object<NSColor>();
    // A user who chose pure white or black gets the background that follows the appearance instead.
    if (!stored || isWhiteColor(*stored) || isBlackColor(*stored))
        return NSColor::textBackgroundColor();
    return stored;
}

} // namespace CVLExtensions
