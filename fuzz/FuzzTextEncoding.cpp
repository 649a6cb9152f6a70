// Any bytes decode to UTF-8, at once as well as piece by piece, with the same result.

#include "platform/foundation/TextDecoder.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kPieceLength = 3;
    const std::string bytes(data, data + size);
    const auto encoding = textEncodingForBytes(bytes);
    const auto whole = decodedText(bytes);
    auto decoder = TextDecoder::createWithCharset(encoding.name);
    if (!isValidUTF8(whole) || !decoder)
        std::abort();
    std::string text;
    const auto rest = std::string_view(bytes).substr(encoding.markLength);
    for (std::size_t offset = 0; offset < rest.size(); offset += kPieceLength)
        decoder->append(rest.substr(offset, kPieceLength), text);
    decoder->finish(text);
    if (text != whole)
        std::abort();
    return 0;
}
