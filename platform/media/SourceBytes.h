#pragma once

#include "platform/media/ContentReader.h"

#include <cstdint>
#include <optional>
#include <span>

/// Random access to the bytes of a content source, which must outlive it. Never moves a file's own position.
class SourceBytes {
public:
    /// None when the file cannot be looked up or is no regular file; errno tells why.
    [[nodiscard]] static std::optional<SourceBytes> open(const ContentSource& source);

    [[nodiscard]] std::uint64_t byteCount() const { return m_byteCount; }

    /// Fills `buffer` from `offset` on. @return the bytes that were there, fewer than asked for at the end
    /// only; none when the file system refuses.
    [[nodiscard]] std::optional<std::size_t> readAt(std::uint64_t offset, std::span<char> buffer) const;

private:
    SourceBytes(int fileDescriptor, std::string_view bytes, std::uint64_t byteCount);

    int m_fileDescriptor;
    std::string_view m_bytes;
    std::uint64_t m_byteCount;
};
