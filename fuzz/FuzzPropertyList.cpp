#include "platform/foundation/NSPropertyList.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// What was read can be written in binary form and reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto value
        = NSPropertyListSerialization::propertyListWithData({reinterpret_cast<const char*>(data), size});
    if (!value)
        return 0;
    const auto bytes = NSPropertyListSerialization::dataWithPropertyList(value, NSPropertyListFormat::Binary);
    // A real that is no number equals nothing, itself included.
    if (!bytes
        || (value == value && NSPropertyListSerialization::propertyListWithData(bytes->bytes) != value))
        std::abort();
    const auto xml = NSPropertyListSerialization::dataWithPropertyList(value, NSPropertyListFormat::XML);
    if (xml && !NSPropertyListSerialization::propertyListWithData(xml->bytes))
        std::abort();
    return 0;
}
