#include "platform/foundation/NSUUID.h"

#include "platform/foundation/NSCoder.h"

#include <fmt/format.h>
#include <systemd/sd-id128.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::string_view kBytesKey = "NS.uuidbytes";

NSAny decodeUUID(NSCoder& coder)
{
    const auto stored = coder.decodeBytesForKey(kBytesKey);
    NSUUID::Bytes bytes{};
    if (!stored || stored->size() != bytes.size()) {
        coder.failWithError(NSError::errorWithCode(NSCocoaError::CoderReadCorrupt,
                                                   "A UUID of the archive has not its 16 bytes."));
        return nullptr;
    }
    std::transform(stored->begin(), stored->end(), bytes.begin(),
                   [](char byte) { return static_cast<std::uint8_t>(byte); });
    return std::make_shared<const NSUUID>(bytes);
}

std::string_view viewOf(const NSUUID::Bytes& bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

const NSClass& NSUUID::classObject()
{
    static const NSClass object{"NSUUID", &NSObjectClass, decodeUUID};
    return object;
}

NSUUID NSUUID::UUID()
{
    sd_id128_t identifier{};
    if (sd_id128_randomize(&identifier) < 0)
        throw std::runtime_error("the system gives no random bytes");
    Bytes bytes{};
    std::copy(std::begin(identifier.bytes), std::end(identifier.bytes), bytes.begin());
    return NSUUID(bytes);
}

std::string NSUUID::UUIDString()
{
    return UUID().string();
}

std::string NSUUID::string() const
{
    std::string text;
    for (std::size_t index = 0; index < m_bytes.size(); ++index) {
        if (index == 4 || index == 6 || index == 8 || index == 10)
            text += '-';
        fmt::format_to(std::back_inserter(text), "{:02X}", m_bytes.at(index));
    }
    return text;
}

bool NSUUID::isEqual(const NSObject& other) const
{
    const auto* identifier = dynamic_cast<const NSUUID*>(&other);
    return identifier && identifier->m_bytes == m_bytes;
}

std::size_t NSUUID::hash() const
{
    return std::hash<std::string_view>()(viewOf(m_bytes));
}

void NSUUID::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeBytes(viewOf(m_bytes), kBytesKey);
}
