#include "platform/foundation/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

FileDescriptor::~FileDescriptor()
{
    if (m_descriptor >= 0)
        (void)::close(m_descriptor); // A descriptor that was only read has nothing to lose here.
}

FileDescriptor FileDescriptor::openForReading(const std::string& path)
{
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
}

std::optional<std::string> readFile(int descriptor, std::size_t maximumByteCount)
{
    struct stat status { };

    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return std::nullopt;
    }
    std::string bytes;
    const std::size_t expected = std::min(static_cast<std::size_t>(status.st_size), maximumByteCount);
    // One byte more shows the end, without room for which all that was read would be copied.
    const std::size_t whole = std::min(expected + 1, maximumByteCount);
    while (bytes.size() < maximumByteCount) {
        const std::size_t offset = bytes.size();
        bytes.resize(offset < whole ? whole : std::min(offset + 65536, maximumByteCount));
        const ssize_t count
            = ::pread(descriptor, bytes.data() + offset, bytes.size() - offset, static_cast<off_t>(offset));
        if (count < 0 && errno != EINTR)
            return std::nullopt;
        bytes.resize(offset + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0)
            break;
    }
    return bytes;
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return true;
}
