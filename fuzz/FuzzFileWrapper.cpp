// Any bytes give a file wrapper or none; one that there is has the same bytes again after a round.

#include "platform/foundation/NSFileWrapper.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    NSError error;
    const auto wrapper = NSFileWrapper::initWithSerializedRepresentation(bytes, &error);
    if (!wrapper) {
        if (error.code() == 0)
            std::abort();
        return 0;
    }
    const auto written = wrapper->serializedRepresentation();
    if (!written)
        std::abort();
    const auto again = NSFileWrapper::initWithSerializedRepresentation(written->bytes);
    if (!again || again->serializedRepresentation() != written)
        std::abort();
    return 0;
}
