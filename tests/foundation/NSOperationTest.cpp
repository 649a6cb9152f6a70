#include "platform/foundation/NSOperation.h"

#include <gtest/gtest.h>

namespace {

/// "all" depends on "part", that on "flag", and "flag" on "all" again.
class ChainedOperation : public NSOperation {
public:
    using NSOperation::didChangeValueForKey;

protected:
    [[nodiscard]] std::vector<std::string>
    keyPathsForValuesAffectingValueForKey(std::string_view key) const override
    {
        if (key == "all")
            return {"other", "part"};
        if (key == "part")
            return {"flag"};
        return key == "flag" ? std::vector<std::string>{"all"} : std::vector<std::string>();
    }
};

} // namespace

TEST(NSOperation, NotifiesObserversOfTheKeyAndOfThoseThatDependOnIt)
{
    ChainedOperation operation;
    std::vector<std::string> seen;
    const auto note = [&](std::string_view key) { seen.emplace_back(key); };
    (void)operation.addObserver("flag", note);
    (void)operation.addObserver("all", note);
    (void)operation.addObserver("unrelated", note);
    operation.didChangeValueForKey("flag");
    EXPECT_EQ(seen, (std::vector<std::string>{"flag", "all"}));
}

TEST(NSOperation, FollowsACircleOnce)
{
    ChainedOperation operation;
    int count = 0;
    (void)operation.addObserver("flag", [&](std::string_view) { ++count; });
    operation.didChangeValueForKey("unrelated");
    EXPECT_EQ(count, 0);
    operation.didChangeValueForKey("other");
    EXPECT_EQ(count, 1);
}

TEST(NSOperation, StopsNotifyingARemovedObserver)
{
    ChainedOperation operation;
    int count = 0;
    NSOperation::ObserverToken token = 0;
    token = operation.addObserver("flag", [&](std::string_view) {
        ++count;
        operation.removeObserver(token);
    });
    operation.didChangeValueForKey("flag");
    operation.didChangeValueForKey("flag");
    operation.removeObserver(token);
    EXPECT_EQ(count, 1);
}
