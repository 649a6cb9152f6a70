#include "platform/foundation/NSPropertyList.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

/// What was read can be written in binary form and reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using Serialization = NSPropertyListSerialization;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto value = Serialization::propertyListWithData(bytes);
    if (!value)
        return 0;
    const auto binary = Serialization::dataWithPropertyList(value, NSPropertyListFormat::Binary);
    // Where two readings differ there is a real that is no number, which equals nothing.
    if (!binary
        || (Serialization::propertyListWithData(bytes) == value
            && Serialization::propertyListWithData(binary->bytes) != value))
        std::abort();
    const auto xml = Serialization::dataWithPropertyList(value, NSPropertyListFormat::XML);
    if (xml && !Serialization::propertyListWithData(xml->bytes))
        std::abort();
    return 0;
}
