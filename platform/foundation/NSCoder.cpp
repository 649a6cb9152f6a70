#include "platform/foundation/NSCoder.h"

const NSClass NSObjectClass{"NSObject"};
const NSClass NSStringClass{"NSString", &NSObjectClass};
const NSClass NSNumberClass{"NSNumber", &NSObjectClass};
const NSClass NSDataClass{"NSData", &NSObjectClass};
const NSClass NSDateClass{"NSDate", &NSObjectClass};
const NSClass NSArrayClass{"NSArray", &NSObjectClass};
const NSClass NSDictionaryClass{"NSDictionary", &NSObjectClass};
const NSClass NSURLClass{"NSURL", &NSObjectClass};
const NSClass NSMutableStringClass{"NSMutableString", &NSStringClass};
const NSClass NSMutableDataClass{"NSMutableData", &NSDataClass};
const NSClass NSMutableArrayClass{"NSMutableArray", &NSArrayClass};
const NSClass NSMutableDictionaryClass{"NSMutableDictionary", &NSDictionaryClass};

bool NSClass::isSubclassOfClass(const NSClass& other) const
{
    for (const auto* ancestor = this; ancestor; ancestor = ancestor->superclass) {
        if (ancestor == &other)
            return true;
    }
    return false;
}

std::optional<std::u16string> NSCoder::decodeStringForKey(std::string_view key)
{
    const auto value = decodeObjectOfClass(NSStringClass, key);
    return value.string() ? std::optional(*value.string()) : std::nullopt;
}
