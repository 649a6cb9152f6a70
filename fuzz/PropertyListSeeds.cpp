#include "fuzz/Seeds.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSNull.h"
#include "platform/foundation/NSObjectKeyedDictionary.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/NSSet.h"
#include "platform/foundation/NSUUID.h"
#include "platform/foundation/NSValue.h"

#include <stdexcept>

namespace {

std::string bytesOf(const std::optional<NSData>& data)
{
    if (!data)
        throw std::runtime_error("a seed cannot be written");
    return data->bytes;
}

/// One of each kind that property lists have.
NSAny::Dictionary plainValues()
{
    const NSAny shared = NSAny::Array{true, 1, 300, -1, 2.5};
    return {{u"text", u"ASCII"},
            {u"wide", u"\u00E4\u4E2D\U0001F44A"},
            {u"data", NSData{std::string("\0\xFF", 2)}},
            {u"date", NSDate{378595277}},
            {u"once", shared},
            {u"twice", shared}};
}

/// The same, and one of each class that archives have besides.
NSAny::Dictionary objects()
{
    const NSUUID::Bytes bytes{1, 2, 3};
    auto values = plainValues();
    values.insert_or_assign(u"null", NSNull::null());
    values.insert_or_assign(u"UUID", std::make_shared<const NSUUID>(bytes));
    values.insert_or_assign(u"set", std::make_shared<const NSSet>(NSAny::Array{1, u"two"}));
    values.insert_or_assign(u"ordered", std::make_shared<const NSOrderedSet>(NSAny::Array{1, u"two"}));
    values.insert_or_assign(u"rect", std::make_shared<const NSValue>(NSRect{{1, 2}, {3, 4}}));
    values.insert_or_assign(u"range", std::make_shared<const NSValue>(NSRange{5, 6}));
    values.insert_or_assign(u"insets", std::make_shared<const NSValue>(NSEdgeInsets{1, 2, 3, 4}));
    values.insert_or_assign(u"URL", *NSURL::URLWithString("https://example.com/a?b#c"));
    values.insert_or_assign(
        u"keys",
        std::make_shared<const NSObjectKeyedDictionary>(NSObjectKeyedDictionary::Entries{{1, u"one"}}));
    return values;
}

} // namespace

std::vector<Seed> propertyListSeeds()
{
    auto values = plainValues();
    values.insert_or_assign(u"UID", std::make_shared<const NSKeyedArchiverUID>(7));
    const auto written = [&values](NSPropertyListFormat format) {
        return bytesOf(NSPropertyListSerialization::dataWithPropertyList(values, format));
    };
    return {{"binary", written(NSPropertyListFormat::Binary)}, {"xml", written(NSPropertyListFormat::XML)}};
}

std::vector<Seed> keyedArchiveSeeds()
{
    const auto binary = bytesOf(NSKeyedArchiver::archivedDataWithRootObject(objects(), true));
    const auto list = NSPropertyListSerialization::propertyListWithData(binary);
    return {
        {"binary", binary},
        {"xml", bytesOf(NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::XML))},
        {"text", bytesOf(NSKeyedArchiver::archivedDataWithRootObject(u"text", true))}};
}
