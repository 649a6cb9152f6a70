#include "service/CVLAsynchronousOperation.h"

#include <gtest/gtest.h>

TEST(CVLAsynchronousOperation, IsNotExecutingOnceItIsFinished)
{
    CVLAsynchronousOperation operation;
    EXPECT_TRUE(operation.isAsynchronous());
    EXPECT_FALSE(operation.isExecuting());
    operation.setOperationExecuting(true);
    EXPECT_TRUE(operation.isExecuting());
    EXPECT_FALSE(operation.isFinished());
    operation.setOperationFinished(true);
    EXPECT_FALSE(operation.isExecuting());
    EXPECT_TRUE(operation.isFinished());
    EXPECT_TRUE(operation.operationExecuting());
}

TEST(CVLAsynchronousOperation, ShowsChangesOfItsFlagsAsChangesOfItsState)
{
    CVLAsynchronousOperation operation;
    std::vector<std::string> seen;
    const auto note = [&](std::string_view key) { seen.emplace_back(key); };
    (void)operation.addObserver("executing", note);
    (void)operation.addObserver("finished", note);
    operation.setOperationExecuting(true);
    EXPECT_EQ(seen, (std::vector<std::string>{"executing"}));
    operation.setOperationFinished(true);
    EXPECT_EQ(seen, (std::vector<std::string>{"executing", "executing", "finished"}));
}
