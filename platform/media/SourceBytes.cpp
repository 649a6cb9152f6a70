#include "platform/media/SourceBytes.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

SourceBytes::SourceBytes(int fileDescriptor, std::string_view bytes, std::uint64_t byteCount)
    : m_fileDescriptor(fileDescriptor)
    , m_bytes(bytes)
    , m_byteCount(byteCount)
{
}

std::optional<SourceBytes> SourceBytes::open(const ContentSource& source)
{
    if (!source.isFile())
        return SourceBytes(-1, source.bytes, source.bytes.size());

    struct stat status { };

    if (::fstat(source.fileDescriptor, &status) != 0)
        return std::nullopt;
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return std::nullopt;
    }
    return SourceBytes(source.fileDescriptor, {}, static_cast<std::uint64_t>(status.st_size));
}

std::optional<std::size_t> SourceBytes::readAt(std::uint64_t offset, std::span<char> buffer) const
{
    if (offset >= m_byteCount)
        return 0;
    const auto wanted
        = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), m_byteCount - offset));
    if (m_fileDescriptor < 0) {
        (void)m_bytes.copy(buffer.data(), wanted,
                           static_cast<std::size_t>(offset)); // `wanted` bytes are there.
        return wanted;
    }
    std::size_t done = 0;
    while (done < wanted) {
        const auto count = ::pread(m_fileDescriptor, buffer.data() + done, wanted - done,
                                   static_cast<off_t>(offset + done));
        if (count == 0)
            break;
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return std::nullopt;
    }
    return done;
}
