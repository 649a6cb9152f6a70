#include "platform/media/LegacyWordReader.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ContentSource source;
    source.bytes = {reinterpret_cast<const char*>(data), size};
    ContentSink sink(ContentLimits{});
    (void)readLegacyWord(source, sink);
    return 0;
}
