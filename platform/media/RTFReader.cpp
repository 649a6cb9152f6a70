#include "platform/media/RTFReader.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSError.h"
#include "platform/rtf/RTFText.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>

namespace {

// The package's document by its fixed name; never through a link, which could lead out of the package.
constexpr const char* kPackageDocument = "TXT.rtf";

bool isFolder(int descriptor)
{
    struct stat status { };

    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

ReadResult unreadable()
{
    return {ContentStatus::Unreadable,
            NSError::errorWithErrno(errno, "read the RTF document").localizedDescription()};
}

ReadResult readBytes(std::string_view bytes, ContentSink& sink)
{
    if (bytes.size() >= sink.limits().wholeFileBytes)
        sink.noteCut("the document was read up to its size limit");
    const auto result = readRTFText(bytes, [&sink](std::string_view text) { return sink.append(text); });
    if (!result.isRTF)
        return {ContentStatus::Damaged, "not an RTF document"};
    for (const auto& field : result.fields)
        sink.addField(field.name, field.value);
    return {};
}

} // namespace

ReadResult readRTF(const ContentSource& source, ContentSink& sink)
{
    if (!source.isFile())
        return readBytes(source.bytes.substr(0, sink.limits().wholeFileBytes), sink);
    FileDescriptor member;
    if (isFolder(source.fileDescriptor)) {
        member = FileDescriptor(::openat(source.fileDescriptor, kPackageDocument,
                                         O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        if (!member.isValid())
            return unreadable();
    }
    const auto bytes
        = readFile(member.isValid() ? member.get() : source.fileDescriptor, sink.limits().wholeFileBytes);
    return bytes ? readBytes(*bytes, sink) : unreadable();
}
