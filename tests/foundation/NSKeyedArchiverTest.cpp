#include "platform/foundation/NSKeyedArchiver.h"

#include "platform/foundation/FoundationClasses.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSNull.h"
#include "platform/foundation/NSObjectKeyedDictionary.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/NSSet.h"
#include "platform/foundation/NSUUID.h"
#include "platform/foundation/NSValue.h"
#include "platform/foundation/PropertyListLimits.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

NSData archived(const NSAny& object)
{
    NSError error;
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(object, true, &error);
    EXPECT_TRUE(data) << error.localizedDescription();
    return data.value_or(NSData{});
}

/// Without secure coding any class comes.
NSAny unarchived(const NSData& data)
{
    NSError error;
    const auto unarchiver
        = NSKeyedUnarchiver::initForReadingFromData(data.bytes, foundationClasses(), &error);
    if (!unarchiver) {
        ADD_FAILURE() << error.localizedDescription();
        return nullptr;
    }
    unarchiver->setRequiresSecureCoding(false);
    error = NSError();
    auto object = unarchiver->decodeTopLevelObjectOfClasses({}, NSKeyedArchiveRootObjectKey, &error);
    EXPECT_EQ(error.code(), 0) << error.localizedDescription();
    return object;
}

NSAny roundTrip(const NSAny& object)
{
    return unarchived(archived(object));
}

/// The archive's objects as a property list shows them.
NSAny::Array objectsOf(const NSData& data)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(data.bytes);
    if (!list.dictionary())
        return {};
    const auto objects = list.dictionary()->find(u"$objects");
    return objects == list.dictionary()->end() ? NSAny::Array() : *objects->second.array();
}

NSAny UID(std::uint64_t value)
{
    return std::make_shared<const NSKeyedArchiverUID>(value);
}

NSAny classRecord(std::initializer_list<std::u16string_view> names)
{
    return NSAny::Dictionary{{u"$classname", *names.begin()},
                             {u"$classes", NSAny::Array(names.begin(), names.end())}};
}

/// Encodes its text in each of the mutable forms.
class MutableForms final : public NSCoding {
public:
    static const NSClass& classObject()
    {
        static const NSClass object{"MutableForms", &NSObjectClass, nullptr};
        return object;
    }

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    void encodeWithCoder(NSCoder& coder) const override
    {
        coder.encodeMutableString(u"text", "string");
        coder.encodeMutableData("bytes", "data");
        const NSAny::Array members{1};
        coder.encodeMutableArray(members, "array");
    }
};

/// Refers to itself.
class Ouroboros final : public NSCoding, public std::enable_shared_from_this<Ouroboros> {
public:
    [[nodiscard]] const NSClass& classForCoder() const override { return MutableForms::classObject(); }

    void encodeWithCoder(NSCoder& coder) const override { coder.encodeObject(shared_from_this(), "tail"); }
};

class NoCoding final : public NSObject { };

class Refusing final : public NSCoding {
public:
    [[nodiscard]] const NSClass& classForCoder() const override { return MutableForms::classObject(); }

    void encodeWithCoder(NSCoder& coder) const override
    {
        coder.failWithError(NSError("Refusals", 7));
        coder.failWithError(NSError("Refusals", 8));
    }
};

NSAny nestedArrays(unsigned depth)
{
    NSAny value = NSAny::Array();
    for (unsigned level = 1; level < depth; ++level)
        value = NSAny::Array{value};
    return value;
}

/// Values of every kind, a few levels deep.
class RandomValues {
public:
    explicit RandomValues(unsigned seed)
        : m_engine(seed)
    {
    }

    NSAny value(unsigned depth)
    {
        switch (below(depth > 0 ? 13 : 9)) {
        case 0:
            return below(2) == 0;
        case 1:
            return static_cast<std::int64_t>(m_engine()) >> below(64);
        case 2:
            return static_cast<double>(static_cast<std::int64_t>(m_engine())) / 1024.0;
        case 3:
            return text();
        case 4:
            return NSData{std::string(below(300), static_cast<char>(below(256)))};
        case 5:
            return NSDate{static_cast<double>(below(1U << 30U)) / 8.0};
        case 6:
            return *NSURL::URLWithString("https://example.com/" + std::to_string(below(100)));
        case 7:
            return std::make_shared<const NSUUID>(NSUUID::UUID());
        case 8:
            return std::make_shared<const NSValue>(NSRect{{0.1, 2}, {static_cast<double>(below(9)), 1e30}});
        case 9:
            return array(depth);
        case 10:
            return std::make_shared<const NSOrderedSet>(array(depth));
        case 11:
            return std::make_shared<const NSObjectKeyedDictionary>(
                NSObjectKeyedDictionary::Entries{{static_cast<int>(below(50)), value(depth - 1)}});
        default:
            return dictionary(depth);
        }
    }

private:
    std::uint64_t below(std::uint64_t bound) { return m_engine() % bound; }

    std::u16string text()
    {
        std::u16string text;
        for (auto length = below(40); length > 0; --length)
            text.push_back(static_cast<char16_t>(below(8) == 0 ? below(0x10000) : below(0x80)));
        return text;
    }

    NSAny::Array array(unsigned depth)
    {
        NSAny::Array array;
        for (auto count = below(20); count > 0; --count)
            array.push_back(value(depth - 1));
        return array;
    }

    NSAny dictionary(unsigned depth)
    {
        NSAny::Dictionary dictionary;
        for (auto count = below(20); count > 0; --count)
            dictionary.insert_or_assign(text(), value(depth - 1));
        return dictionary;
    }

    std::mt19937_64 m_engine;
};

} // namespace

TEST(NSKeyedArchiver, WritesTheContainerThatThePlatformWrites)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(archived(u"text").bytes);
    const NSAny expected = NSAny::Dictionary{{u"$version", 100000},
                                             {u"$archiver", u"NSKeyedArchiver"},
                                             {u"$top", NSAny::Dictionary{{u"root", UID(1)}}},
                                             {u"$objects", NSAny::Array{u"$null", u"text"}}};
    EXPECT_EQ(list, expected);
}

TEST(NSKeyedArchiver, PutsObjectsInTheOrderTheyAreMetAndClassesBehindTheFirstOfThem)
{
    const auto objects = objectsOf(archived(NSAny::Array{NSAny::Dictionary{{u"a", 1}}, u"b"}));
    const NSAny::Array expected{
        u"$null",
        NSAny::Dictionary{{u"NS.objects", NSAny::Array{UID(2), UID(6)}}, {u"$class", UID(7)}},
        NSAny::Dictionary{
            {u"NS.keys", NSAny::Array{UID(3)}}, {u"NS.objects", NSAny::Array{UID(4)}}, {u"$class", UID(5)}},
        u"a",
        1,
        classRecord({u"NSDictionary", u"NSObject"}),
        u"b",
        classRecord({u"NSArray", u"NSObject"}),
    };
    EXPECT_EQ(NSAny(objects), NSAny(expected));
}

TEST(NSKeyedArchiver, WritesEqualTextsAndNumbersOnce)
{
    const std::u16string text = u"twice";
    const auto objects = objectsOf(archived(NSAny::Array{text, 7, text, 7, 7.0, true, true, 1}));
    // $null, the array, "twice", 7, 7.0, true, 1, and the class: an integer, a real and a boolean stay apart.
    EXPECT_EQ(objects.size(), 8U);
}

TEST(NSKeyedArchiver, WritesACollectionOnceAndEqualOnesEach)
{
    const NSAny shared = NSAny::Array{1};
    EXPECT_EQ(objectsOf(archived(NSAny::Array{shared, shared})).size(), 5U);
    EXPECT_EQ(objectsOf(archived(NSAny::Array{NSAny::Array{1}, NSAny::Array{1}})).size(), 6U);
}

TEST(NSKeyedArchiver, KeepsIdentity)
{
    const NSAny shared = NSAny::Array{1};
    const auto back = roundTrip(NSAny::Array{shared, shared, NSAny::Array{1}});
    ASSERT_TRUE(back.array());
    const auto& elements = *back.array();
    ASSERT_EQ(elements.size(), 3U);
    EXPECT_EQ(elements[0].identity(), elements[1].identity());
    EXPECT_NE(elements[0].identity(), elements[2].identity());
}

TEST(NSKeyedArchiver, WritesMutableObjectsWhereAsked)
{
    const auto objects = objectsOf(archived(std::make_shared<const MutableForms>()));
    const NSAny::Array expected{
        u"$null",
        NSAny::Dictionary{{u"string", UID(2)}, {u"data", UID(4)}, {u"array", UID(6)}, {u"$class", UID(9)}},
        NSAny::Dictionary{{u"NS.string", u"text"}, {u"$class", UID(3)}},
        classRecord({u"NSMutableString", u"NSString", u"NSObject"}),
        NSAny::Dictionary{{u"NS.data", NSData{"bytes"}}, {u"$class", UID(5)}},
        classRecord({u"NSMutableData", u"NSData", u"NSObject"}),
        NSAny::Dictionary{{u"NS.objects", NSAny::Array{UID(7)}}, {u"$class", UID(8)}},
        1,
        classRecord({u"NSMutableArray", u"NSArray", u"NSObject"}),
        classRecord({u"MutableForms", u"NSObject"}),
    };
    EXPECT_EQ(NSAny(objects), NSAny(expected));
}

TEST(NSKeyedArchiver, WritesANilRootAsAReferenceToNothing)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(archived(nullptr).bytes);
    ASSERT_TRUE(list.dictionary());
    EXPECT_EQ(list.dictionary()->at(u"$top"), NSAny(NSAny::Dictionary{{u"root", UID(0)}}));
    EXPECT_TRUE(unarchived(archived(nullptr)).isNil());
}

TEST(NSKeyedArchiver, TellsTheTextOfTheNullObjectFromNil)
{
    EXPECT_EQ(roundTrip(u"$null"), NSAny(u"$null"));
}

TEST(NSKeyedArchiver, KeepsEveryKindOfValue)
{
    const NSAny values[] = {
        true,
        false,
        0,
        -1,
        255,
        256,
        65536,
        std::numeric_limits<std::int64_t>::max(),
        std::numeric_limits<std::int64_t>::min(),
        0.1,
        -0.0,
        std::numeric_limits<double>::infinity(),
        u"",
        u"ASCII",
        u"h\u00E4user \U0001F44A",
        std::u16string(u"NUL \0 within", 12),
        std::u16string(u"lone \xD83D surrogate"),
        std::u16string(100'000, u'x'),
        NSData{},
        NSData{std::string(300, '\0')},
        NSDate{378595277.72386},
        *NSURL::URLWithString("https://example.com/a?b#c"),
        *NSURL::URLWithString("relative/path"),
        NSAny::Array{},
        NSAny::Dictionary{},
        NSNull::null(),
        std::make_shared<const NSSet>(NSAny::Array{1, u"two"}),
        std::make_shared<const NSOrderedSet>(NSAny::Array{3, 1, 2}),
        std::make_shared<const NSValue>(NSPoint{1, -2.5}),
        std::make_shared<const NSValue>(NSSize{3, 4}),
        std::make_shared<const NSValue>(NSRect{{1, 2}, {3, 4}}),
        std::make_shared<const NSValue>(NSRange{NSNotFound, 0}),
        std::make_shared<const NSValue>(NSEdgeInsets{1, 2, 3, 4}),
    };
    for (const auto& value : values) {
        const auto back = roundTrip(value);
        EXPECT_EQ(back, value);
        EXPECT_EQ(back.isBoolean(), value.isBoolean());
        EXPECT_EQ(back.isReal(), value.isReal());
    }
}

TEST(NSKeyedArchiver, KeepsDictionariesWhoseKeysAreNoTexts)
{
    const NSAny value = std::make_shared<const NSObjectKeyedDictionary>(
        NSObjectKeyedDictionary::Entries{{1, u"one"}, {u"two", 2}, {NSData{"three"}, NSAny::Array{3}}});
    const auto back = roundTrip(value);
    EXPECT_EQ(back, value);
    const auto dictionary = back.object<NSObjectKeyedDictionary>();
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->objectForKey(1), NSAny(u"one"));
    EXPECT_TRUE(dictionary->objectForKey(4).isNil());
}

TEST(NSKeyedArchiver, KeepsRandomValues)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        const auto value = RandomValues(seed).value(4);
        EXPECT_EQ(roundTrip(value), value) << "seed " << seed;
    }
}

TEST(NSKeyedArchiver, RefusesWhatCannotBeArchived)
{
    const NSAny impossible[] = {
        std::make_shared<const NoCoding>(),          NSAny::Array{nullptr},
        NSAny::Dictionary{{u"a", nullptr}},          std::make_shared<Ouroboros>(),
        nestedArrays(kMaximumPropertyListDepth + 1), std::make_shared<const NSKeyedArchiverUID>(1),
    };
    for (const auto& value : impossible) {
        NSError error;
        EXPECT_FALSE(NSKeyedArchiver::archivedDataWithRootObject(value, true, &error));
        EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
        EXPECT_EQ(error.code(), 3851);
        EXPECT_FALSE(NSKeyedArchiver::archivedDataWithRootObject(value, true));
    }
}

TEST(NSKeyedArchiver, GivesTheFirstErrorOfAnEncoder)
{
    NSError error;
    EXPECT_FALSE(
        NSKeyedArchiver::archivedDataWithRootObject(std::make_shared<const Refusing>(), true, &error));
    EXPECT_EQ(error.domain(), "Refusals");
    EXPECT_EQ(error.code(), 7);
}

TEST(NSKeyedArchiver, WritesAsDeepAsCanBeRead)
{
    const auto deepest = nestedArrays(kMaximumPropertyListDepth);
    EXPECT_EQ(roundTrip(deepest), deepest);
}

TEST(NSKeyedArchiver, WritesReferencesOfEverySize)
{
    NSAny::Array numbers;
    for (int number = 0; number < 70'000; ++number)
        numbers.emplace_back(number);
    const NSAny value = std::move(numbers);
    EXPECT_EQ(roundTrip(value), value);
}
