#include "platform/xpc/TerminationSignals.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <signal.h>

TEST(TerminationSignals, MakeADescriptorReadableAndAreDoneWithThen)
{
    for (const int number : {SIGTERM, SIGINT}) {
        const TerminationSignals signals;
        pollfd waited{signals.descriptor(), POLLIN, 0};
        EXPECT_EQ(::poll(&waited, 1, 0), 0);
        ASSERT_EQ(::raise(number), 0);
        EXPECT_EQ(::poll(&waited, 1, 0), 1);
    }
    SUCCEED() << "the process is still here";
}
