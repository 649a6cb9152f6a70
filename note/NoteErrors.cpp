#include "note/NoteErrors.h"

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Unicode.h"

#include <map>
#include <string>
#include <utility>

namespace {

std::map<std::string, NSErrorValue> describedBy(std::u16string_view text)
{
    return {{std::string(NSLocalizedDescriptionKey),
             UTF8FromUTF16(NSBundle::mainBundle().localizedStringForKey(text))}};
}

} // namespace

NSError noPackageError()
{
    return {CVLNoteFileErrorDomain, CVLNoteFileInvalidFormatErrorCode,
            describedBy(u"Note file is not a file package.")};
}

NSError recoverableError()
{
    return {CVLNoteFileErrorDomain, CVLNoteFileRecoverFromRTFDErrorCode,
            describedBy(u"The note file could not be read.")};
}

bool isRecoverable(const NSError& error)
{
    return error.domain() == CVLNoteFileErrorDomain && error.code() == CVLNoteFileRecoverFromRTFDErrorCode;
}

NSError invalidNoteError(NSError underlying)
{
    auto userInfo = describedBy(u"File is not a valid note file.");
    userInfo.emplace(NSUnderlyingErrorKey, std::make_shared<const NSError>(std::move(underlying)));
    return {CVLNoteFileErrorDomain, CVLNoteFileInvalidFormatErrorCode, std::move(userInfo)};
}
