#include "platform/foundation/NSKeyedUnarchiver.h"

#include "platform/foundation/FoundationClasses.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSNull.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/NSSet.h"
#include "platform/foundation/NSUUID.h"
#include "platform/foundation/NSValue.h"
#include "platform/foundation/PropertyListLimits.h"
#include "tests/support/PropertyListBytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// An object of a made-up class that keeps what was under its keys.
class Thing final : public NSObject {
public:
    Thing(NSAny any, NSAny number)
        : m_any(std::move(any))
        , m_number(std::move(number))
    {
    }

    [[nodiscard]] const NSAny& any() const { return m_any; }

    [[nodiscard]] const NSAny& number() const { return m_number; }

private:
    NSAny m_any;
    NSAny m_number;
};

/// "any" under the enclosing classes, "number" under a list of its own.
NSAny decodeThing(NSCoder& coder)
{
    auto any = coder.decodeObjectForKey("any");
    auto number = coder.decodeObjectOfClass(NSNumberClass, "number");
    return std::make_shared<const Thing>(std::move(any), std::move(number));
}

const NSClass& thingClass()
{
    static const NSClass object{"Thing", &NSObjectClass, decodeThing};
    return object;
}

const NSClassTable& testClasses()
{
    static const NSClassTable classes(foundationClasses(), {&thingClass()});
    return classes;
}

NSAny::Dictionary object(NSAny::Dictionary entries, std::uint64_t classUID)
{
    entries.insert_or_assign(u"$class", archiveUID(classUID));
    return entries;
}

NSAny::Dictionary arrayOf(std::initializer_list<std::uint64_t> members, std::uint64_t classUID)
{
    NSAny::Array references;
    for (const auto member : members)
        references.push_back(archiveUID(member));
    return object({{u"NS.objects", references}}, classUID);
}

NSAny decodeOpenly(std::string_view data, NSError* error = nullptr)
{
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(data, testClasses(), error);
    if (!unarchiver)
        return nullptr;
    unarchiver->setRequiresSecureCoding(false);
    return unarchiver->decodeTopLevelObjectOfClasses({}, NSKeyedArchiveRootObjectKey, error);
}

NSAny decodeSecurely(const NSClassList& classes, std::string_view data, NSError* error = nullptr)
{
    return NSKeyedUnarchiver::unarchivedObjectOfClasses(classes, data, testClasses(), error);
}

void expectCorrupt(std::string_view data)
{
    NSError error;
    EXPECT_TRUE(decodeOpenly(data, &error).isNil());
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), 4864) << error.localizedDescription();
    EXPECT_TRUE(decodeOpenly(data).isNil());
}

void expectRefused(const NSClassList& classes, std::string_view data)
{
    NSError error;
    EXPECT_TRUE(decodeSecurely(classes, data, &error).isNil());
    EXPECT_EQ(error.code(), 4864) << error.localizedDescription();
}

std::string sample(const std::string& name)
{
    std::ifstream file(std::filesystem::path(CORVEL_SAMPLES_DIR) / "keyed" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const NSAny kArrayClass = archiveClass({u"NSArray", u"NSObject"});
const NSAny kDictionaryClass = archiveClass({u"NSDictionary", u"NSObject"});
const NSAny kThingClass = archiveClass({u"Thing", u"NSObject"});

} // namespace

TEST(NSKeyedUnarchiver, ReadsAnArchiveOfTheUsualForm)
{
    const auto data
        = archiveBytes({arrayOf({2, 3, 4, 2}, 6), u"text", 7, arrayOf({5}, 6), true, kArrayClass});
    EXPECT_EQ(decodeOpenly(data), NSAny(NSAny::Array{u"text", 7, NSAny::Array{true}, u"text"}));
}

TEST(NSKeyedUnarchiver, ReadsXML)
{
    const auto xml = NSPropertyListSerialization::dataWithPropertyList(
        archiveOf({arrayOf({2}, 3), u"text", kArrayClass}), NSPropertyListFormat::XML);
    ASSERT_TRUE(xml);
    EXPECT_EQ(decodeOpenly(xml->bytes), NSAny(NSAny::Array{u"text"}));
}

TEST(NSKeyedUnarchiver, ReadsTheIndexedFormOfCollections)
{
    EXPECT_EQ(decodeOpenly(
                  archiveBytes({object({{u"NS.object.1", archiveUID(2)}, {u"NS.object.0", archiveUID(3)}}, 4),
                                u"b", u"a", kArrayClass})),
              NSAny(NSAny::Array{u"a", u"b"}));
    EXPECT_EQ(
        decodeOpenly(archiveBytes({object({{u"NS.key.0", archiveUID(2)}, {u"NS.object.0", archiveUID(3)}}, 4),
                                   u"key", u"value", kDictionaryClass})),
        NSAny(NSAny::Dictionary{{u"key", u"value"}}));
}

TEST(NSKeyedUnarchiver, ReadsEveryFormOfTextsAndData)
{
    struct Case {
        NSAny::Dictionary entries;
        std::vector<std::u16string> classes;
        NSAny expected;
    };

    const Case cases[] = {
        {{{u"NS.string", u"text"}}, {u"NSMutableString", u"NSString", u"NSObject"}, u"text"},
        {{{u"NS.bytes", NSData{"h\xC3\xA4"}}}, {u"NSMutableString", u"NSString"}, u"h\u00E4"},
        {{}, {u"NSMutableString"}, u""},
        {{{u"NS.data", NSData{"ab"}}}, {u"NSMutableData", u"NSData"}, NSData{"ab"}},
        {{{u"NS.data", NSData{"ab"}}}, {u"NSData"}, NSData{"ab"}},
        {{{u"NS.bytes", NSData{"ab"}}}, {u"NSMutableData"}, NSData{"ab"}},
        {{}, {u"NSData"}, NSData{}},
        {{{u"NS.intval", 3}}, {u"NSNumber", u"NSValue"}, 3},
        {{{u"NS.dblval", 2.5}}, {u"NSNumber"}, 2.5},
        {{{u"NS.boolval", true}}, {u"NSNumber"}, true},
        {{{u"NS.time", 12.5}}, {u"NSDate"}, NSDate{12.5}},
        {{{u"NS.time", 12}}, {u"NSDate"}, NSDate{12}},
        {{}, {u"NSNull"}, NSNull::null()},
    };
    for (const auto& [entries, classes, expected] : cases)
        EXPECT_EQ(decodeOpenly(archiveBytes({object(entries, 2), archiveClass(classes)})), expected);
    EXPECT_EQ(decodeOpenly(archiveBytes({NSData{"bare"}})), NSAny(NSData{"bare"}));
    EXPECT_EQ(decodeOpenly(archiveBytes({NSDate{3}})), NSAny(NSDate{3}));
}

TEST(NSKeyedUnarchiver, ResolvesURLsAgainstTheirBase)
{
    const auto urlClass = archiveClass({u"NSURL", u"NSObject"});
    const auto decoded = [&](std::u16string_view base, std::u16string_view relative) {
        return decodeOpenly(archiveBytes(
            {object({{u"NS.base", archiveUID(base.empty() ? 0 : 2)}, {u"NS.relative", archiveUID(4)}}, 5),
             object({{u"NS.base", archiveUID(0)}, {u"NS.relative", archiveUID(3)}}, 5), base, relative,
             urlClass}));
    };
    EXPECT_EQ(decoded(u"https://www.swift.org/a/b", u"index.xml"),
              NSAny(*NSURL::URLWithString("https://www.swift.org/a/index.xml")));
    EXPECT_EQ(decoded(u"", u"index.xml"), NSAny(*NSURL::URLWithString("index.xml")));
    // What may not stand in a URL is encoded, not a reason to lose the link.
    EXPECT_EQ(decoded(u"", u"https://a/b c\u00E4%zz%41"),
              NSAny(*NSURL::URLWithString("https://a/b%20c%C3%A4%25zz%41")));
    EXPECT_TRUE(decoded(u"", u"").isNil());
}

TEST(NSKeyedUnarchiver, MakesAnObjectOnce)
{
    const auto back
        = decodeOpenly(archiveBytes({arrayOf({2, 2}, 3), object({}, 4), kArrayClass, kThingClass}));
    ASSERT_TRUE(back.array());
    ASSERT_EQ(back.array()->size(), 2U);
    EXPECT_EQ(back.array()->front().identity(), back.array()->back().identity());
}

TEST(NSKeyedUnarchiver, TakesIntegersForRealsAndObjectsForScalars)
{
    const auto unarchiver
        = NSKeyedUnarchiver::initForReadingFromData(archiveBytes({object({{u"integer", 3},
                                                                          {u"real", 2.75},
                                                                          {u"flag", true},
                                                                          {u"number", archiveUID(2)},
                                                                          {u"text", u"7"}},
                                                                         3),
                                                                  9, kThingClass}),
                                                    testClasses());
    ASSERT_TRUE(unarchiver);
    auto& top = unarchiver->topLevel();
    EXPECT_TRUE(top.containsValueForKey("root"));
    EXPECT_FALSE(top.containsValueForKey("other"));
    EXPECT_EQ(top.decodeIntegerForKey("root"), 0);
    EXPECT_TRUE(top.requiresSecureCoding());

    static NSAny::Array read;
    static const NSClass reader{"Thing", &NSObjectClass, [](NSCoder& coder) {
                                    read = {coder.decodeDoubleForKey("integer"),
                                            coder.decodeIntegerForKey("real"),
                                            coder.decodeIntegerForKey("flag"),
                                            coder.decodeIntegerForKey("number"),
                                            coder.decodeIntegerForKey("text"),
                                            coder.decodeBoolForKey("absent"),
                                            coder.decodeDoubleForKey("absent"),
                                            coder.decodeBytesForKey("absent").has_value(),
                                            coder.decodeStringForKey("text").value_or(u"")};
                                    return NSAny(1);
                                }};
    const NSClassTable table{&reader};
    const auto data = archiveBytes(
        {object(
             {{u"integer", 3}, {u"real", 2.75}, {u"flag", true}, {u"number", archiveUID(2)}, {u"text", u"7"}},
             3),
         9, kThingClass});
    EXPECT_EQ(NSKeyedUnarchiver::unarchivedObjectOfClass(reader, data, table), NSAny(1));
    EXPECT_THAT(read, ElementsAre(3.0, 2, 1, 9, 0, false, 0.0, false, u"7"));
}

TEST(NSKeyedUnarchiver, FindsKeysAmongMany)
{
    NSAny::Dictionary entries;
    for (char16_t index = 0; index < 1000; ++index)
        entries.insert_or_assign(std::u16string(u"key") + char16_t(0x4E00 + index), index);
    entries.insert_or_assign(u"number", archiveUID(2));
    const auto back = decodeOpenly(archiveBytes({object(entries, 3), 9, kThingClass}));
    ASSERT_TRUE(back.object<Thing>());
    EXPECT_EQ(back.object<Thing>()->number(), NSAny(9));
}

TEST(NSKeyedUnarchiver, AcceptsOnlyTheClassesAskedFor)
{
    const auto data = archiveBytes({arrayOf({2, 3}, 4), u"text", object({}, 5), kArrayClass, kThingClass});
    EXPECT_TRUE(decodeSecurely({&NSArrayClass, &NSStringClass, &thingClass()}, data));
    EXPECT_TRUE(decodeSecurely({&NSObjectClass}, data));
    expectRefused({&NSArrayClass, &NSStringClass}, data);
    expectRefused({&NSArrayClass, &thingClass()}, data);
    expectRefused({&NSStringClass, &thingClass()}, data);
    expectRefused({}, data);
}

TEST(NSKeyedUnarchiver, AcceptsSubclassesOfTheClassesAskedFor)
{
    const auto data = archiveBytes(
        {object({{u"NS.string", u"text"}}, 2), archiveClass({u"NSMutableString", u"NSString", u"NSObject"})});
    EXPECT_EQ(decodeSecurely({&NSStringClass}, data), NSAny(u"text"));
    expectRefused({&NSMutableStringClass}, archiveBytes({u"text"}));
}

TEST(NSKeyedUnarchiver, AcceptsTextsAndNumbersAsKeysAlways)
{
    const auto withKey = [](const NSAny& key) {
        return archiveBytes(
            {object({{u"NS.keys", NSAny::Array{archiveUID(2)}}, {u"NS.objects", NSAny::Array{archiveUID(3)}}},
                    4),
             key, 1, kDictionaryClass, kThingClass});
    };
    EXPECT_TRUE(decodeSecurely({&NSDictionaryClass, &NSNumberClass}, withKey(u"key")));
    EXPECT_TRUE(decodeSecurely({&NSDictionaryClass, &NSNumberClass}, withKey(5)));
    expectRefused({&NSDictionaryClass}, withKey(u"key"));
    expectRefused({&NSDictionaryClass, &NSNumberClass, &thingClass()}, withKey(object({}, 5)));
}

TEST(NSKeyedUnarchiver, LooksAtClassesAgainWhenAnObjectIsAskedForAgain)
{
    // The inner array is let in with its text by the outer list, and then asked for as a number.
    const auto data = archiveBytes({object({{u"any", archiveUID(2)}, {u"number", archiveUID(2)}}, 5),
                                    arrayOf({3}, 4), u"text", kArrayClass, kThingClass});
    expectRefused({&thingClass(), &NSArrayClass, &NSStringClass}, data);
    // The same where only what the array holds is no number.
    static const NSClass pair{
        "Thing", &NSObjectClass, [](NSCoder& coder) {
            const auto any = coder.decodeObjectForKey("any");
            return coder.decodeObjectOfClasses({&NSArrayClass, &NSNumberClass}, "number");
        }};
    const NSClassTable table(foundationClasses(), {&pair});
    NSError error;
    EXPECT_TRUE(NSKeyedUnarchiver::unarchivedObjectOfClasses({&pair, &NSArrayClass, &NSStringClass}, data,
                                                             table, &error)
                    .isNil());
    EXPECT_EQ(error.code(), 4864);
}

TEST(NSKeyedUnarchiver, GivesAnObjectItsOwnListWhateverTheEnclosingOne)
{
    const auto data = archiveBytes({object({{u"number", archiveUID(2)}}, 3), 7, kThingClass});
    const auto back = decodeSecurely({&thingClass()}, data);
    ASSERT_TRUE(back.object<Thing>());
    EXPECT_EQ(back.object<Thing>()->number(), NSAny(7));
    expectRefused({&thingClass()},
                  archiveBytes({object({{u"number", archiveUID(2)}}, 3), u"7", kThingClass}));
}

TEST(NSKeyedUnarchiver, MakesUnknownClassesAsTheirNearestKnownAncestor)
{
    const auto data
        = archiveBytes({object({}, 2), archiveClass({u"Gadget", u"Unknown", u"Thing", u"NSObject"})});
    EXPECT_TRUE(decodeOpenly(data).object<Thing>());
    EXPECT_TRUE(decodeSecurely({&thingClass()}, data).object<Thing>());
}

TEST(NSKeyedUnarchiver, LeavesObjectsOfUnknownClassesOutAndSaysSoOnce)
{
    std::vector<std::string> lines;
    const NSLogCapture capture([&lines](std::string_view line) { lines.emplace_back(line); });
    const auto unknown = archiveClass({u"Gadget", u"NSObject"});
    const auto list
        = archiveBytes({arrayOf({2, 3, 4}, 5), object({}, 6), u"kept", object({}, 6), kArrayClass, unknown});
    EXPECT_EQ(decodeOpenly(list), NSAny(NSAny::Array{u"kept"}));
    EXPECT_THAT(lines, ElementsAre(HasSubstr("Gadget")));

    const auto references = [](std::uint64_t first, std::uint64_t second) {
        return NSAny::Array{archiveUID(first), archiveUID(second)};
    };
    const auto dictionary
        = archiveBytes({object({{u"NS.keys", references(2, 3)}, {u"NS.objects", references(4, 5)}}, 6), u"a",
                        u"b", object({}, 7), u"kept", kDictionaryClass, unknown});
    EXPECT_EQ(decodeOpenly(dictionary), NSAny(NSAny::Dictionary{{u"b", u"kept"}}));

    const auto thing = decodeOpenly(
        archiveBytes({object({{u"any", archiveUID(2)}}, 3), object({}, 4), kThingClass, unknown}));
    ASSERT_TRUE(thing.object<Thing>());
    EXPECT_TRUE(thing.object<Thing>()->any().isNil());
    expectRefused({&NSArrayClass, &NSStringClass}, list);
}

/// A dictionary has text keys when those that remain are texts.
TEST(NSKeyedUnarchiver, LooksAtTheKeysThatRemain)
{
    const NSLogCapture quiet([](std::string_view /*line*/) {});
    const auto data = archiveBytes({object({{u"NS.keys", NSAny::Array{archiveUID(2), archiveUID(3)}},
                                            {u"NS.objects", NSAny::Array{archiveUID(4), archiveUID(5)}}},
                                           6),
                                    1, u"b", object({}, 7), u"kept", kDictionaryClass,
                                    archiveClass({u"Gadget", u"NSObject"})});
    EXPECT_EQ(decodeOpenly(data), NSAny(NSAny::Dictionary{{u"b", u"kept"}}));
}

TEST(NSKeyedUnarchiver, TellsAMissingRootFromAMissingKey)
{
    const NSAny list = NSAny::Dictionary{{u"$version", 100000},
                                         {u"$archiver", u"NSKeyedArchiver"},
                                         {u"$top", NSAny::Dictionary{{u"other", archiveUID(1)}}},
                                         {u"$objects", NSAny::Array{u"$null", u"text"}}};
    const auto data = NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::Binary);
    ASSERT_TRUE(data);
    NSError error;
    EXPECT_TRUE(NSKeyedUnarchiver::unarchivedObjectOfClass(NSStringClass, data->bytes, testClasses(), &error)
                    .isNil());
    EXPECT_EQ(error.code(), 4865);
    error = NSError();
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(data->bytes, testClasses());
    ASSERT_TRUE(unarchiver);
    EXPECT_TRUE(unarchiver->decodeTopLevelObjectOfClasses({&NSStringClass}, "root", &error).isNil());
    EXPECT_EQ(error.code(), 0);
    EXPECT_EQ(unarchiver->decodeTopLevelObjectOfClasses({&NSStringClass}, "other", &error), NSAny(u"text"));
}

TEST(NSKeyedUnarchiver, RefusesArchivesThatAreNone)
{
    expectCorrupt("");
    expectCorrupt("text");
    expectCorrupt("<plist><dict/></plist>");
    const NSAny lists[] = {
        1,
        NSAny::Dictionary{},
        NSAny::Dictionary{{u"$top", NSAny::Dictionary{}}, {u"$objects", NSAny::Array{}}},
        NSAny::Dictionary{{u"$version", 5}, {u"$top", NSAny::Dictionary{}}, {u"$objects", NSAny::Array{}}},
        NSAny::Dictionary{{u"$version", 100000}, {u"$top", NSAny::Array{}}, {u"$objects", NSAny::Array{}}},
        NSAny::Dictionary{{u"$version", 100000}, {u"$top", NSAny::Dictionary{}}, {u"$objects", 1}},
    };
    for (const auto& list : lists) {
        const auto data
            = NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::Binary);
        ASSERT_TRUE(data);
        expectCorrupt(data->bytes);
    }
}

TEST(NSKeyedUnarchiver, SaysThatAStreamArchiveIsNoKeyedOne)
{
    const std::string data("\x04\x0bstreamtyped\x81\xe8\x03\x84", 17);
    expectCorrupt(data);
    NSError error;
    EXPECT_FALSE(NSKeyedUnarchiver::initForReadingFromData(data, testClasses(), &error));
    EXPECT_THAT(error.localizedDescription(), HasSubstr("older form"));
}

TEST(NSKeyedUnarchiver, RefusesMalformedObjects)
{
    const NSAny::Array archives[] = {
        {arrayOf({9}, 2), kArrayClass}, // A reference out of range.
        {arrayOf({UINT64_MAX}, 2), kArrayClass}, //
        {arrayOf({1}, 2), kArrayClass}, // A circle.
        {arrayOf({2}, 3), arrayOf({1}, 3), kArrayClass}, // A longer one.
        {NSAny::Dictionary{}}, // No class.
        {object({}, 9)}, // A class out of range.
        {object({}, 0)}, // Nil for a class.
        {object({}, 2), u"NSArray"}, // A class that is a text.
        {object({}, 2), NSAny::Dictionary{{u"$classname", 5}}}, // A class without a name.
        {NSAny::Dictionary{{u"$class", 2}}, kArrayClass}, // A number for a reference.
        {NSAny::Array{}}, // A bare array.
        {archiveUID(1)}, // A bare reference.
        {object({{u"NS.objects", u"text"}}, 2), kArrayClass}, // Contents of another kind.
        {object({{u"NS.objects", NSAny::Array{5}}}, 2), kArrayClass}, //
        {object({{u"NS.keys", NSAny::Array{}}, {u"NS.objects", NSAny::Array{archiveUID(0)}}}, 2),
         kDictionaryClass},
        {object({{u"NS.uuidbytes", NSData{"short"}}}, 2), archiveClass({u"NSUUID"})},
        {object({}, 2), archiveClass({u"NSUUID"})},
        {object({{u"NS.special", 4}, {u"NS.rangeval.length", -1}}, 2), archiveClass({u"NSValue"})},
        {object({{u"NS.count", 1000000}}, 2), archiveClass({u"_NSKeyedCoderOldStyleArray"})},
    };
    for (const auto& objects : archives)
        expectCorrupt(archiveBytes(objects));
}

TEST(NSKeyedUnarchiver, RefusesObjectsNestedTooDeeply)
{
    const auto nested = [](std::uint64_t depth) {
        NSAny::Array objects;
        for (std::uint64_t level = 1; level < depth; ++level)
            objects.push_back(arrayOf({level + 1}, depth + 1));
        objects.push_back(arrayOf({}, depth + 1));
        objects.push_back(kArrayClass);
        return archiveBytes(objects);
    };
    EXPECT_TRUE(decodeOpenly(nested(kMaximumPropertyListDepth)));
    expectCorrupt(nested(kMaximumPropertyListDepth + 1));
    expectCorrupt(nested(100'000));
}

TEST(NSKeyedUnarchiver, RefusesSharedObjectsThatGrowWithoutBound)
{
    NSAny::Array objects;
    for (std::uint64_t level = 1; level < 60; ++level)
        objects.push_back(arrayOf({level + 1, level + 1}, 61));
    objects.push_back(u"leaf");
    objects.push_back(kArrayClass);
    expectCorrupt(archiveBytes(objects));
}

TEST(NSKeyedUnarchiver, GivesNothingMoreAfterAnError)
{
    const NSAny list
        = NSAny::Dictionary{{u"$version", 100000},
                            {u"$top", NSAny::Dictionary{{u"bad", archiveUID(9)}, {u"good", archiveUID(1)}}},
                            {u"$objects", NSAny::Array{u"$null", u"text"}}};
    const auto data = NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::Binary);
    ASSERT_TRUE(data);
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(data->bytes, testClasses());
    ASSERT_TRUE(unarchiver);
    EXPECT_EQ(unarchiver->decodeTopLevelObjectOfClasses({&NSStringClass}, "good"), NSAny(u"text"));
    EXPECT_TRUE(unarchiver->decodeTopLevelObjectOfClasses({&NSStringClass}, "bad").isNil());
    NSError error;
    EXPECT_TRUE(unarchiver->decodeTopLevelObjectOfClasses({&NSStringClass}, "good", &error).isNil());
    EXPECT_EQ(error.code(), 4864);
}

TEST(NSKeyedUnarchiver, SurvivesEveryChangeOfOneByte)
{
    const auto data = archiveBytes({arrayOf({2, 3, 4}, 6), u"text",
                                    object({{u"any", archiveUID(2)}, {u"number", archiveUID(5)}}, 7),
                                    arrayOf({2}, 6), 300, kArrayClass, kThingClass});
    const NSLogCapture quiet([](std::string_view /*line*/) {});
    for (std::size_t offset = 0; offset < data.size(); ++offset) {
        for (int value = 0; value < 256; ++value) {
            auto changed = data;
            changed[offset] = static_cast<char>(value);
            NSError error;
            (void)decodeOpenly(changed, &error); // Many changes leave an archive.
            ASSERT_TRUE(error.code() == 0 || error.code() == 4864) << error.localizedDescription();
        }
    }
}

class NSKeyedUnarchiverSamples : public testing::Test {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(std::filesystem::path(CORVEL_SAMPLES_DIR) / "keyed"))
            GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
    }
};

TEST_F(NSKeyedUnarchiverSamples, HoldFoundationObjects)
{
    const auto UUID = std::make_shared<const NSUUID>(NSUUID::Bytes{
        0x71, 0xdc, 0x06, 0x8e, 0x34, 0x20, 0x45, 0xff, 0x91, 0x9e, 0x3a, 0x26, 0x7d, 0x55, 0xec, 0x22});
    EXPECT_EQ(
        decodeOpenly(sample("NSKeyedUnarchiver-ComplexTest.plist")),
        NSAny(NSAny::Dictionary{
            {u"array", NSAny::Array{NSNull::null(), u"hello", 34545, NSAny::Dictionary{{u"key", u"val"}}}},
            {u"string", u"hello"},
            {u"url", *NSURL::URLWithString("https://www.swift.org/index.xml")},
            {u"uuid", UUID}}));
    const auto value = decodeOpenly(sample("NSKeyedUnarchiver-ConcreteValueTest.plist")).object<NSValue>();
    ASSERT_TRUE(value);
    ASSERT_TRUE(value->get<NSValue::Typed>());
    EXPECT_EQ(value->get<NSValue::Typed>()->objCType, u"[3i]");
    const NSKeyedCoderOldStyleArray numbers('i', 4, {1, 2, 3});
    EXPECT_TRUE(value->get<NSValue::Typed>()->value.anyObject()->isEqual(numbers));
    const auto rect = decodeOpenly(sample("NSKeyedUnarchiver-RectTest.plist")).object<NSValue>();
    ASSERT_TRUE(rect);
    ASSERT_TRUE(rect->get<NSRect>());
    EXPECT_EQ(*rect->get<NSRect>(), (NSRect{{400, 300}, {200, 300}}));
    const auto identifier = decodeOpenly(sample("NSKeyedUnarchiver-UUIDTest.plist")).object<NSUUID>();
    ASSERT_TRUE(identifier);
    EXPECT_EQ(identifier->string(), "0AD863BA-7584-40CF-8896-BD87B3280C34");
    const auto ordered = decodeOpenly(sample("NSOrderedSet-Numbers.archive")).object<NSOrderedSet>();
    ASSERT_TRUE(ordered);
    EXPECT_THAT(ordered->members(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(decodeOpenly(sample("NSSet-Numbers.archive")),
              NSAny(std::make_shared<const NSSet>(NSAny::Array{1, 2, 3, 4, 5})));
}

TEST_F(NSKeyedUnarchiverSamples, SurviveBeingWrittenAgain)
{
    for (const auto* name :
         {"NSKeyedUnarchiver-ComplexTest.plist", "NSKeyedUnarchiver-ConcreteValueTest.plist",
          "NSKeyedUnarchiver-RectTest.plist", "NSKeyedUnarchiver-UUIDTest.plist",
          "NSOrderedSet-Numbers.archive", "NSSet-Numbers.archive"}) {
        const auto value = decodeOpenly(sample(name));
        const auto data = NSKeyedArchiver::archivedDataWithRootObject(value, true);
        ASSERT_TRUE(data) << name;
        EXPECT_EQ(decodeOpenly(data->bytes), value) << name;
    }
}

namespace {

NSAny nothing(NSCoder& /*coder*/)
{
    return NSNull::null();
}

/// Decodes each object of an archive by itself, as a root, taking every class for one without keys.
void walk(std::string_view data, const std::string& name)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(data);
    ASSERT_TRUE(list.dictionary()) << name;
    const auto objects = *list.dictionary()->at(u"$objects").array();
    static const NSClass anything{"NSObject", nullptr, nothing};
    const NSClassTable classes(foundationClasses(), {&anything});
    for (std::uint64_t uid = 1; uid < objects.size(); ++uid) {
        if (objects[uid].dictionary() && objects[uid].dictionary()->contains(u"$classname"))
            continue;
        auto rerooted = *list.dictionary();
        rerooted.insert_or_assign(u"$top", NSAny::Dictionary{{u"root", archiveUID(uid)}});
        const auto bytes
            = NSPropertyListSerialization::dataWithPropertyList(rerooted, NSPropertyListFormat::Binary);
        ASSERT_TRUE(bytes) << name;
        const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(bytes->bytes, classes);
        ASSERT_TRUE(unarchiver) << name;
        unarchiver->setRequiresSecureCoding(false);
        NSError error;
        EXPECT_TRUE(unarchiver->decodeTopLevelObjectOfClasses({}, "root", &error))
            << name << " object " << uid << ": " << error.localizedDescription();
    }
}

} // namespace

TEST_F(NSKeyedUnarchiverSamples, AllDecodeObjectByObject)
{
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(CORVEL_SAMPLES_DIR) / "keyed")) {
        const auto name = entry.path().filename().string();
        const auto extension = entry.path().extension();
        if (extension == ".archive" || extension == ".plist" || extension == ".nib")
            walk(sample(name), name);
        if (extension != ".terminal")
            continue;
        const auto settings = NSPropertyListSerialization::propertyListWithData(sample(name));
        ASSERT_TRUE(settings.dictionary()) << name;
        for (const auto& [key, value] : *settings.dictionary()) {
            if (value.data() && !value.data()->bytes.starts_with("\x04\x0b"))
                walk(value.data()->bytes, name);
            else if (value.data())
                expectCorrupt(value.data()->bytes);
        }
    }
}
