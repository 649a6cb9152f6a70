#include "platform/foundation/NSAny.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// Equal to others of the same number.
class Numbered final : public NSObject {
public:
    explicit Numbered(int number)
        : m_number(number)
    {
    }

    [[nodiscard]] bool isEqual(const NSObject& other) const override
    {
        const auto* numbered = dynamic_cast<const Numbered*>(&other);
        return numbered && numbered->m_number == m_number;
    }

    [[nodiscard]] std::size_t hash() const override { return static_cast<std::size_t>(m_number); }

private:
    int m_number;
};

class Other final : public NSObject { };

} // namespace

TEST(NSAny, IsNilWithoutAValue)
{
    EXPECT_TRUE(NSAny().isNil());
    EXPECT_TRUE(NSAny(nullptr).isNil());
    EXPECT_TRUE(NSAny(std::shared_ptr<const Numbered>()).isNil());
    EXPECT_TRUE(NSAny(std::shared_ptr<Numbered>()).isNil());
    EXPECT_FALSE(NSAny(false).isNil());
    EXPECT_TRUE(NSAny(false));
    EXPECT_FALSE(NSAny());
    EXPECT_EQ(NSAny(), NSAny(nullptr));
}

TEST(NSAny, IsOfOneKind)
{
    EXPECT_TRUE(NSAny(true).isBoolean());
    EXPECT_TRUE(NSAny(1).isInteger());
    EXPECT_TRUE(NSAny(1.0).isReal());
    EXPECT_TRUE(NSAny(true).isNumber() && NSAny(1).isNumber() && NSAny(1.0).isNumber());
    EXPECT_FALSE(NSAny(u"1").isNumber());
    EXPECT_EQ(*NSAny(u"text").string(), u"text");
    EXPECT_EQ(NSAny(u"text").data(), nullptr);
    EXPECT_EQ(NSAny(NSData{"bytes"}).data()->bytes, "bytes");
    EXPECT_EQ(NSAny(NSDate{3}).date(), NSDate{3});
    EXPECT_EQ(NSAny(3).date(), std::nullopt);
    EXPECT_EQ(NSAny(*NSURL::URLWithString("a:b")).url()->absoluteString(), "a:b");
    EXPECT_EQ(NSAny(NSAny::Array{1}).array()->size(), 1U);
    EXPECT_EQ(NSAny(NSAny::Dictionary{{u"k", 1}}).dictionary()->at(u"k"), NSAny(1));
}

TEST(NSAny, ReadsNumbersAsThePlatformDoes)
{
    struct Case {
        NSAny value;
        std::int64_t integer;
        double real;
        bool flag;
    };

    constexpr auto kMaximum = std::numeric_limits<std::int64_t>::max();
    constexpr auto kMinimum = std::numeric_limits<std::int64_t>::min();
    const Case cases[] = {
        {nullptr, 0, 0, false},
        {true, 1, 1, true},
        {-7, -7, -7, true},
        {2.9, 2, 2.9, true},
        {-2.9, -2, -2.9, true},
        {0.5, 0, 0.5, true},
        {1e300, kMaximum, 1e300, true},
        {-1e300, kMinimum, -1e300, true},
        {u"", 0, 0, false},
        {u" 42abc", 42, 42, true},
        {u"-3.5x", -3, -3.5, true},
        {u"+7", 7, 7, true},
        {u"1e2", 1, 100, true},
        {u"99999999999999999999", kMaximum, 1e20, true},
        {u"-99999999999999999999", kMinimum, -1e20, true},
        {u"yes", 0, 0, true},
        {u"True", 0, 0, true},
        {u"no", 0, 0, false},
        {u"000", 0, 0, false},
        {u"  -007", -7, -7, true},
        {NSData{"1"}, 0, 0, false},
        {NSAny::Array{1}, 0, 0, false},
    };
    for (const auto& [value, integer, real, flag] : cases) {
        EXPECT_EQ(value.integerValue(), integer);
        EXPECT_EQ(value.doubleValue(), real);
        EXPECT_EQ(value.boolValue(), flag);
    }
    EXPECT_EQ(NSAny(std::nan("")).integerValue(), 0);
}

TEST(NSAny, ComparesNumbersByWhatTheyCount)
{
    EXPECT_EQ(NSAny(true), NSAny(1));
    EXPECT_EQ(NSAny(1), NSAny(1.0));
    EXPECT_EQ(NSAny(1).hash(), NSAny(1.0).hash());
    EXPECT_EQ(NSAny(true).hash(), NSAny(1).hash());
    EXPECT_NE(NSAny(1), NSAny(1.5));
    EXPECT_NE(NSAny(1), NSAny(u"1"));
    EXPECT_NE(NSAny(0), NSAny());
}

TEST(NSAny, ComparesTheRestByContent)
{
    EXPECT_EQ(NSAny(u"a"), NSAny(u"a"));
    EXPECT_NE(NSAny(u"a"), NSAny(NSData{"a"}));
    EXPECT_EQ((NSAny(NSAny::Array{1, u"a"})), (NSAny(NSAny::Array{1, u"a"})));
    EXPECT_NE((NSAny(NSAny::Array{1, 2})), (NSAny(NSAny::Array{2, 1})));
    EXPECT_EQ((NSAny(NSAny::Dictionary{{u"a", 1}})), (NSAny(NSAny::Dictionary{{u"a", 1.0}})));
    EXPECT_NE((NSAny(NSAny::Dictionary{{u"a", 1}})), (NSAny(NSAny::Dictionary{{u"b", 1}})));
    EXPECT_EQ(NSAny(NSDate{1}), NSAny(NSDate{1}));
    EXPECT_EQ(NSAny(*NSURL::URLWithString("a:b")), NSAny(*NSURL::URLWithString("a:b")));
}

TEST(NSAny, ComparesObjectsAsTheyAsk)
{
    const NSAny immutable = std::make_shared<const Numbered>(1);
    const NSAny changeable = std::make_shared<Numbered>(1);
    EXPECT_EQ(immutable, changeable);
    EXPECT_EQ(changeable, immutable);
    EXPECT_EQ(immutable.hash(), changeable.hash());
    EXPECT_NE(immutable, NSAny(std::make_shared<const Numbered>(2)));
    EXPECT_NE(immutable, NSAny(std::make_shared<const Other>()));
    EXPECT_NE(immutable, NSAny(1));
    EXPECT_NE(NSAny(std::make_shared<const Other>()), NSAny(std::make_shared<const Other>()));
}

TEST(NSAny, GivesObjectsByClass)
{
    const NSAny immutable = std::make_shared<const Numbered>(1);
    const NSAny changeable = std::make_shared<Numbered>(1);
    EXPECT_TRUE(immutable.object<Numbered>());
    EXPECT_FALSE(immutable.mutableObject<Numbered>());
    EXPECT_FALSE(immutable.object<Other>());
    EXPECT_TRUE(immutable.object<NSObject>());
    EXPECT_TRUE(changeable.object<Numbered>());
    EXPECT_TRUE(changeable.mutableObject<Numbered>());
    EXPECT_EQ(NSAny(u"text").anyObject(), nullptr);
}

TEST(NSAny, SharesWhatCopiesHold)
{
    const NSAny text = u"text";
    const NSAny copy = text; // NOLINT(performance-unnecessary-copy-initialization): the copy is the test
    EXPECT_EQ(text.identity(), copy.identity());
    EXPECT_NE(text.identity(), NSAny(u"text").identity());
    EXPECT_EQ(NSAny(1).identity(), nullptr);
    EXPECT_EQ(NSAny().identity(), nullptr);
}
