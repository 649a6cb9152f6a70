#include "platform/foundation/NSPropertyList.h"

#include "platform/foundation/BinaryPropertyList.h"
#include "platform/foundation/BinaryPropertyListValues.h"
#include "platform/foundation/XMLPropertyList.h"

bool NSKeyedArchiverUID::isEqual(const NSObject& other) const
{
    const auto* uid = dynamic_cast<const NSKeyedArchiverUID*>(&other);
    return uid && uid->m_value == m_value;
}

std::size_t NSKeyedArchiverUID::hash() const
{
    return std::hash<std::uint64_t>()(m_value);
}

NSAny NSPropertyListSerialization::propertyListWithData(std::string_view data, NSError* error)
{
    if (!data.starts_with(kBinaryPropertyListStart))
        return valueOfXMLPropertyList(data, error);
    const auto list = BinaryPropertyList::createWithData(data, error);
    return list ? valueOfPropertyList(*list, error) : NSAny();
}

std::optional<NSData> NSPropertyListSerialization::dataWithPropertyList(const NSAny& propertyList,
                                                                        NSPropertyListFormat format,
                                                                        NSError* error)
{
    auto bytes = format == NSPropertyListFormat::XML ? XMLPropertyListWithValue(propertyList, error)
                                                     : binaryPropertyListWithValue(propertyList, error);
    return bytes ? std::optional(NSData{std::move(*bytes)}) : std::nullopt;
}
