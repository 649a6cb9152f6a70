#include "documents/DocumentErrors.h"

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Unicode.h"

NSError documentError(NSCocoaError code, std::u16string_view text)
{
    return NSError::errorWithCode(code, UTF8FromUTF16(NSBundle::mainBundle().localizedStringForKey(text)));
}
