#include "platform/foundation/NSNotificationCenter.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::u16string_view kSaved = u"Saved";
constexpr std::u16string_view kClosed = u"Closed";

class NSNotificationCenterTest : public testing::Test {
protected:
    NSNotificationToken observe(std::optional<std::u16string_view> name, const NSObject* object,
                                const std::string& observer)
    {
        return m_center.addObserverForName(
            name, object, [this, observer](const NSNotification&) { m_calls.push_back(observer); });
    }

    NSNotificationCenter m_center;
    std::vector<std::string> m_calls;
};

TEST_F(NSNotificationCenterTest, CallsObserversInTheOrderInWhichTheyWereAdded)
{
    (void)observe(kSaved, nullptr, "first");
    (void)observe(kSaved, nullptr, "second");
    m_center.postNotificationName(kSaved);
    EXPECT_THAT(m_calls, ElementsAre("first", "second"));
}

TEST_F(NSNotificationCenterTest, CallsOnlyThoseThatLookForTheNameAndTheObject)
{
    const NSObject one;
    const NSObject other;
    (void)observe(kSaved, nullptr, "any object");
    (void)observe(kSaved, &one, "one");
    (void)observe(std::nullopt, &other, "any name");
    (void)observe(std::nullopt, nullptr, "all");
    m_center.postNotificationName(kSaved, &one);
    EXPECT_THAT(m_calls, ElementsAre("any object", "one", "all"));
    m_calls.clear();
    m_center.postNotificationName(kClosed, &other);
    EXPECT_THAT(m_calls, ElementsAre("any name", "all"));
    m_calls.clear();
    m_center.postNotificationName(kSaved);
    EXPECT_THAT(m_calls, ElementsAre("any object", "all"));
}

TEST_F(NSNotificationCenterTest, SaysWhatHappenedToWhat)
{
    const NSObject object;
    std::vector<NSNotification> seen;
    (void)m_center.addObserverForName(
        std::nullopt, nullptr, [&](const NSNotification& notification) { seen.push_back(notification); });
    m_center.postNotificationName(kSaved, &object);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].name, kSaved);
    EXPECT_EQ(seen[0].object, &object);
}

TEST_F(NSNotificationCenterTest, CallsNoRemovedObserver)
{
    const auto token = observe(kSaved, nullptr, "gone");
    (void)observe(kSaved, nullptr, "stays");
    m_center.removeObserver(token);
    m_center.removeObserver(token);
    m_center.removeObserver(nullptr);
    m_center.postNotificationName(kSaved);
    EXPECT_THAT(m_calls, ElementsAre("stays"));
}

TEST_F(NSNotificationCenterTest, LetsObserversRemoveThemselvesAndEachOther)
{
    std::vector<NSNotificationToken> tokens;
    tokens.push_back(m_center.addObserverForName(kSaved, nullptr, [&](const NSNotification&) {
        m_calls.emplace_back("remover");
        for (const auto& token : tokens)
            m_center.removeObserver(token);
    }));
    tokens.push_back(observe(kSaved, nullptr, "removed"));
    m_center.postNotificationName(kSaved);
    m_center.postNotificationName(kSaved);
    EXPECT_THAT(m_calls, ElementsAre("remover"));
}

TEST_F(NSNotificationCenterTest, ReachesObserversAddedMeanwhileWithTheNextPost)
{
    bool isAdded = false;
    (void)m_center.addObserverForName(kSaved, nullptr, [&](const NSNotification&) {
        if (!std::exchange(isAdded, true))
            (void)observe(kSaved, nullptr, "late");
    });
    m_center.postNotificationName(kSaved);
    EXPECT_THAT(m_calls, IsEmpty());
    m_center.postNotificationName(kSaved);
    EXPECT_THAT(m_calls, ElementsAre("late"));
}

TEST_F(NSNotificationCenterTest, LetsObserversPost)
{
    (void)m_center.addObserverForName(kSaved, nullptr,
                                      [&](const NSNotification&) { m_center.postNotificationName(kClosed); });
    (void)observe(kClosed, nullptr, "closed");
    (void)observe(kSaved, nullptr, "saved");
    m_center.postNotificationName(kSaved);
    EXPECT_THAT(m_calls, ElementsAre("closed", "saved"));
}

TEST_F(NSNotificationCenterTest, ServesSeveralThreads)
{
    constexpr int kPosts = 1000;
    std::atomic<int> calls = 0;
    (void)m_center.addObserverForName(kSaved, nullptr, [&](const NSNotification&) { ++calls; });
    const auto work = [&] {
        for (int count = 0; count < kPosts; ++count) {
            const auto token = m_center.addObserverForName(kClosed, nullptr, [](const NSNotification&) {});
            m_center.postNotificationName(kSaved);
            m_center.removeObserver(token);
        }
    };
    std::thread one(work);
    std::thread other(work);
    one.join();
    other.join();
    EXPECT_EQ(calls, 2 * kPosts);
}

TEST(NSNotificationCenter, HasOneCentreForTheProcess)
{
    EXPECT_EQ(&NSNotificationCenter::defaultCenter(), &NSNotificationCenter::defaultCenter());
}

} // namespace
