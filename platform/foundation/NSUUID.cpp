#include "platform/foundation/NSUUID.h"

#include <fmt/format.h>
#include <systemd/sd-id128.h>

#include <stdexcept>
#include <string_view>

std::string NSUUID::UUIDString()
{
    sd_id128_t identifier{};
    if (sd_id128_randomize(&identifier) < 0)
        throw std::runtime_error("the system gives no random bytes");
    std::string text;
    for (std::size_t index = 0; index < sizeof(identifier.bytes); ++index) {
        if (index == 4 || index == 6 || index == 8 || index == 10)
            text += '-';
        fmt::format_to(std::back_inserter(text), "{:02X}", identifier.bytes[index]);
    }
    return text;
}
