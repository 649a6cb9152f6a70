#include "platform/media/NSAttributedStringDocumentFormats.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentReader.h"
#include "platform/types/UTType.h"

#include <cerrno>

std::optional<NSAttributedString> NSAttributedStringDocumentFormats::initWithURL(const NSURL& url,
                                                                                 NSError* error)
{
    const auto path = url.path();
    const auto file = FileDescriptor::openForReading(path);
    if (!file.isValid() || !readFile(file.get(), 0)) {
        setError(error, NSError::errorWithErrno(errno, path));
        return std::nullopt;
    }
    ContentSource source;
    source.fileDescriptor = file.get();
    source.typeIdentifier = kUTTypeWordDocument;
    source.name = url.lastPathComponent();
    const auto content = readContent(source);
    if (content.status == ContentStatus::Unreadable) {
        setError(error, NSError::errorWithErrno(EIO, path));
        return std::nullopt;
    }
    if (content.status != ContentStatus::Read) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileReadCorruptFile, path + ": " + content.reason));
        return std::nullopt;
    }
    for (const auto& note : content.cutNotes)
        NSLog("Read in part: {}: {}", path, note);
    return NSAttributedString(UTF16FromUTF8(content.text));
}
