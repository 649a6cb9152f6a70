#include "platform/media/ContentReader.h"
#include "platform/types/UTType.h"

#include <array>
#include <string_view>

namespace {

struct Row {
    std::string_view typeIdentifier;
    ContentReader reader;
};

// The first row that a type conforms to has its reader: narrow types stand before the wide ones they belong to.
constexpr std::array<Row, 0> kReaders {};

} // namespace

ContentReader contentReaderForType(std::string_view typeIdentifier)
{
    const auto type = UTType::typeWithIdentifier(typeIdentifier);
    for (const auto& row : kReaders) {
        if (type && type->conformsToType(row.typeIdentifier))
            return row.reader;
    }
    return nullptr;
}
