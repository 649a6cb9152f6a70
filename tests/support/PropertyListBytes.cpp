#include "tests/support/PropertyListBytes.h"

#include "platform/foundation/NSPropertyList.h"

#include <utility>

namespace {

void appendNumber(std::string& bytes, std::uint64_t number, unsigned byteCount)
{
    for (auto shift = 8 * byteCount; shift > 0; shift -= 8)
        bytes.push_back(static_cast<char>(static_cast<std::uint8_t>(number >> (shift - 8))));
}

} // namespace

std::string PropertyListBytes::bytes() const
{
    std::string bytes = "bplist00";
    std::vector<std::size_t> offsets;
    for (const auto& object : objects) {
        offsets.push_back(bytes.size());
        bytes += object;
    }
    const auto table = bytes.size();
    for (const auto offset : offsets)
        appendNumber(bytes, offset, 2);
    bytes.append(6, '\0');
    appendNumber(bytes, offsetSize.value_or(2), 1);
    appendNumber(bytes, referenceSize.value_or(2), 1);
    appendNumber(bytes, objectCount.value_or(objects.size()), 8);
    appendNumber(bytes, root, 8);
    appendNumber(bytes, tableOffset.value_or(table), 8);
    return bytes;
}

std::string collectionBytes(std::uint8_t marker, const std::vector<std::uint16_t>& references)
{
    const auto count = (marker & 0xF0U) == 0xD0U ? references.size() / 2 : references.size();
    std::string bytes;
    appendNumber(bytes, marker | count, 1);
    for (const auto reference : references)
        appendNumber(bytes, reference, 2);
    return bytes;
}

NSAny archiveUID(std::uint64_t value)
{
    return std::make_shared<const NSKeyedArchiverUID>(value);
}

NSAny archiveClass(const std::vector<std::u16string>& names)
{
    return NSAny::Dictionary{{u"$classname", names.front()},
                             {u"$classes", NSAny::Array(names.begin(), names.end())}};
}

NSAny archiveOf(NSAny::Array objects)
{
    objects.insert(objects.begin(), u"$null");
    return NSAny::Dictionary{{u"$version", 100000},
                             {u"$archiver", u"NSKeyedArchiver"},
                             {u"$top", NSAny::Dictionary{{u"root", archiveUID(1)}}},
                             {u"$objects", std::move(objects)}};
}

std::string archiveBytes(NSAny::Array objects)
{
    const auto data = NSPropertyListSerialization::dataWithPropertyList(archiveOf(std::move(objects)),
                                                                        NSPropertyListFormat::Binary);
    return data ? data->bytes : std::string();
}
