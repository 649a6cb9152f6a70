// Any bytes are a page, and what a page is read as can be written as one. The first byte chooses what is said
// of the charset.

#include "platform/html/NSAttributedStringHTML.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    namespace Formats = NSAttributedStringDocumentFormats;
    constexpr std::array<std::string_view, 4> kCharsets{"", "utf-8", "iso-2022-jp", "gb18030"};
    if (size == 0)
        return 0;
    NSHTMLReadingOptions options;
    options.textEncodingName = kCharsets.at(data[0] % kCharsets.size());
    options.baseURL = NSURL::URLWithString("https://a.example/b/c");
    const std::string page(reinterpret_cast<const char*>(data) + 1, size - 1);
    NSAny::Dictionary attributes;
    const auto text = Formats::initWithHTML(NSData{page}, options, &attributes);
    if (!text || !Formats::HTMLFromRange(*text, {0, text->length()}))
        std::abort();
    return 0;
}
