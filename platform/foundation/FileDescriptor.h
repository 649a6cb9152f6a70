#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// The one owner of an open file descriptor; closes it when it goes.
class FileDescriptor {
public:
    FileDescriptor() = default;

    explicit FileDescriptor(int descriptor) noexcept
        : m_descriptor(descriptor)
    {
    }

    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }

    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    /// Opens `path` for reading, close-on-exec, never blocking on a FIFO or device. errno tells why it is not
    /// valid.
    [[nodiscard]] static FileDescriptor openForReading(const std::string& path);

    [[nodiscard]] bool isValid() const { return m_descriptor >= 0; }

    [[nodiscard]] int get() const { return m_descriptor; }

    /// Gives the descriptor away; the caller closes it.
    [[nodiscard]] int release() { return std::exchange(m_descriptor, -1); }

private:
    int m_descriptor = -1;
};

/// Up to `maximumByteCount` bytes of the regular file behind `descriptor`, from its start and without moving
/// its position. None when it is no regular file or reading fails; errno tells why.
[[nodiscard]] std::optional<std::string> readFile(int descriptor, std::size_t maximumByteCount);

/// Writes all of `bytes`; false with errno set when that fails.
[[nodiscard]] bool writeAll(int descriptor, std::string_view bytes);
