#include "platform/foundation/FoundationClasses.h"

#include "platform/foundation/KeyedCollections.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSNull.h"
#include "platform/foundation/NSSet.h"
#include "platform/foundation/NSUUID.h"
#include "platform/foundation/NSValue.h"
#include "platform/foundation/Unicode.h"

#include <fmt/format.h>

namespace {

/// Mutable strings. Archivers other than the usual one write UTF-8 under NS.bytes.
NSAny decodeString(NSCoder& coder)
{
    if (auto text = coder.decodeStringForKey("NS.string"))
        return std::move(*text);
    const auto bytes = coder.decodeBytesForKey("NS.bytes");
    return bytes ? NSAny(UTF16FromUTF8(*bytes)) : NSAny(u"");
}

/// Numbers are bare values; archivers other than the usual one make objects of them.
NSAny decodeNumber(NSCoder& coder)
{
    for (const auto* key : {"NS.number", "NS.intval", "NS.dblval", "NS.boolval"}) {
        if (coder.containsValueForKey(key))
            return coder.decodeObjectOfClass(NSNumberClass, key);
    }
    return nullptr;
}

NSAny decodeData(NSCoder& coder)
{
    for (const auto* key : {"NS.data", "NS.bytes"}) {
        if (auto bytes = coder.decodeBytesForKey(key))
            return NSData{std::move(*bytes)};
    }
    return NSData{};
}

NSAny decodeDate(NSCoder& coder)
{
    return NSDate{coder.decodeDoubleForKey("NS.time")};
}

/// A URL's text with what may not stand in one percent-encoded, as newer systems make URLs.
std::string withoutIllegalCharacters(std::string_view text)
{
    std::string encoded;
    for (std::size_t offset = 0; offset < text.size(); ++offset) {
        const auto byte = static_cast<unsigned char>(text[offset]);
        const bool isEscape = byte != '%' || NSURL::URLWithString(text.substr(offset, 3)).has_value();
        if (byte > 0x20 && byte < 0x7F && isEscape)
            encoded.push_back(text[offset]);
        else
            fmt::format_to(std::back_inserter(encoded), "%{:02X}", byte);
    }
    return encoded;
}

/// A relative URL with a base becomes an absolute one; without, it stays as it is.
NSAny decodeURL(NSCoder& coder)
{
    const auto base = coder.decodeObjectOfClass(NSURLClass, "NS.base");
    const auto relative = withoutIllegalCharacters(
        UTF8FromUTF16(coder.decodeStringForKey("NS.relative").value_or(std::u16string())));
    const auto url
        = base.url() ? NSURL::URLWithString(relative, *base.url()) : NSURL::URLWithString(relative);
    return url ? NSAny(*url) : NSAny();
}

} // namespace

constinit const NSClass NSObjectClass{"NSObject"};
constinit const NSClass NSStringClass{"NSString", &NSObjectClass, decodeString};
constinit const NSClass NSNumberClass{"NSNumber", &NSObjectClass, decodeNumber};
constinit const NSClass NSDataClass{"NSData", &NSObjectClass, decodeData};
constinit const NSClass NSDateClass{"NSDate", &NSObjectClass, decodeDate};
constinit const NSClass NSArrayClass{"NSArray", &NSObjectClass, decodeArray};
constinit const NSClass NSDictionaryClass{"NSDictionary", &NSObjectClass, decodeDictionary};
constinit const NSClass NSURLClass{"NSURL", &NSObjectClass, decodeURL};
constinit const NSClass NSMutableStringClass{"NSMutableString", &NSStringClass, decodeString};
constinit const NSClass NSMutableDataClass{"NSMutableData", &NSDataClass, decodeData};
constinit const NSClass NSMutableArrayClass{"NSMutableArray", &NSArrayClass, decodeArray};
constinit const NSClass NSMutableDictionaryClass{"NSMutableDictionary", &NSDictionaryClass, decodeDictionary};

const NSClassTable& foundationClasses()
{
    static const NSClassTable classes{
        &NSStringClass,
        &NSNumberClass,
        &NSDataClass,
        &NSDateClass,
        &NSArrayClass,
        &NSDictionaryClass,
        &NSURLClass,
        &NSMutableStringClass,
        &NSMutableDataClass,
        &NSMutableArrayClass,
        &NSMutableDictionaryClass,
        &NSNull::classObject(),
        &NSSet::classObject(),
        &NSSet::mutableClassObject(),
        &NSOrderedSet::classObject(),
        &NSOrderedSet::mutableClassObject(),
        &NSUUID::classObject(),
        &NSFileWrapper::classObject(),
        &NSValue::classObject(),
        &NSKeyedCoderOldStyleArray::classObject(),
    };
    return classes;
}
