// Any bytes are a message: its header, body and attachments are valid UTF-8, and no decoded attachment is
// larger than the message.

#include "platform/foundation/Unicode.h"
#include "platform/media/MCOMessageParser.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const MCOMessageParser parser({reinterpret_cast<const char*>(data), size});
    check(isValidUTF8(parser.header().subject.value_or("")));
    if (parser.header().from)
        check(isValidUTF8(parser.header().from->nonEncodedRFC822String()));
    check(isValidUTF8(parser.plainTextBodyRenderingAndStripWhitespace(size % 2 == 0)));
    for (const auto& attachment : parser.attachments()) {
        check(isValidUTF8(attachment.filename()));
        check(attachment.data().size() <= size * 2); // Bytes of UTF-16 grow on their way to UTF-8.
    }
    return 0;
}
