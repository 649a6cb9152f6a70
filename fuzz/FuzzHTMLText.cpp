// Any bytes are a page: title and text are valid UTF-8. The first byte chooses what is said of the charset.

#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLText.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::array<std::string_view, 4> kCharsets{"", "utf-8", "iso-2022-jp", "gb18030"};
    if (size == 0)
        return 0;
    const std::string_view page(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::string text;
    const auto title
        = renderHTMLText(page, kCharsets.at(data[0] % kCharsets.size()), [&text](std::string_view piece) {
              text.append(piece);
              return true;
          });
    if (!isValidUTF8(text) || !isValidUTF8(title))
        std::abort();
    return 0;
}
