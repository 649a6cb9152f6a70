#include "platform/media/PNGText.h"

#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <zlib.h>

namespace {

constexpr std::string_view kSignature = "\x89PNG\r\n\x1A\n";
constexpr std::size_t kChunkHeaderLength = 8;
constexpr std::size_t kChecksumLength = 4;
constexpr std::size_t kMostTexts = 1000;
constexpr std::size_t kTextByteCount = 65536;

std::uint32_t bigEndian32(std::string_view bytes)
{
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < 4; ++index)
        value = (value << 8U) | static_cast<unsigned char>(bytes[index]);
    return value;
}

/// Takes the bytes up to the next NUL and moves behind it; none when there is no NUL.
std::optional<std::string_view> takeString(std::string_view& bytes)
{
    const auto end = bytes.find('\0');
    if (end == std::string_view::npos)
        return std::nullopt;
    const auto string = bytes.substr(0, end);
    bytes.remove_prefix(end + 1);
    return string;
}

std::string latin1(std::string_view bytes)
{
    return decodedText(bytes, "iso-8859-1").value_or(std::string());
}

struct InflateEnd {
    void operator()(z_stream* stream) const { (void)inflateEnd(stream); } // Nothing is left to fail.
};

/// What can be expanded of a zlib stream.
std::string expanded(std::string_view bytes)
{
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK)
        return {};
    const std::unique_ptr<z_stream, InflateEnd> owner(&stream);
    std::string input(bytes); // The library's pointer is not const.
    std::string output(kTextByteCount, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
    stream.avail_out = static_cast<uInt>(output.size());
    (void)inflate(&stream, Z_FINISH); // A fault keeps what came before it.
    output.resize(output.size() - stream.avail_out);
    return output;
}

std::optional<PNGTextEntry> plainEntry(std::string_view data)
{
    const auto keyword = takeString(data);
    if (!keyword)
        return std::nullopt;
    return PNGTextEntry{latin1(*keyword), latin1(data)};
}

std::optional<PNGTextEntry> compressedEntry(std::string_view data)
{
    const auto keyword = takeString(data);
    if (!keyword || data.empty() || data.front() != 0)
        return std::nullopt;
    return PNGTextEntry{latin1(*keyword), latin1(expanded(data.substr(1)))};
}

std::optional<PNGTextEntry> internationalEntry(std::string_view data)
{
    const auto keyword = takeString(data);
    if (!keyword || data.size() < 2)
        return std::nullopt;
    const bool isCompressed = data.front() != 0;
    data.remove_prefix(2);
    const auto language = takeString(data);
    const auto translatedKeyword = takeString(data);
    if (!language || !translatedKeyword)
        return std::nullopt;
    return PNGTextEntry{latin1(*keyword), validUTF8(isCompressed ? expanded(data) : std::string(data))};
}

std::optional<PNGTextEntry> entryOf(std::string_view type, std::string_view data)
{
    if (type == "tEXt")
        return plainEntry(data.substr(0, kTextByteCount));
    if (type == "zTXt")
        return compressedEntry(data);
    return type == "iTXt" ? internationalEntry(data.substr(0, kTextByteCount)) : std::nullopt;
}

} // namespace

std::vector<PNGTextEntry> textsOfPNG(std::string_view bytes)
{
    std::vector<PNGTextEntry> texts;
    if (!bytes.starts_with(kSignature))
        return texts;
    bytes.remove_prefix(kSignature.size());
    while (bytes.size() >= kChunkHeaderLength && texts.size() < kMostTexts) {
        const std::size_t length = bigEndian32(bytes);
        const auto type = bytes.substr(4, 4);
        bytes.remove_prefix(kChunkHeaderLength);
        if (length > bytes.size())
            break;
        if (auto entry = entryOf(type, bytes.substr(0, length)))
            texts.push_back(std::move(*entry));
        bytes.remove_prefix(std::min(length + kChecksumLength, bytes.size()));
    }
    return texts;
}
