// Any bytes give RTF text that is UTF-8 and in proportion to them.

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFText.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kMostTextPerByte = 4;
    const std::string rtf = "{\\rtf1" + std::string(data, data + size);
    std::string text;
    (void)readRTFText(rtf, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    if (!isValidUTF8(text) || text.size() > kMostTextPerByte * rtf.size())
        std::abort();
    return 0;
}
