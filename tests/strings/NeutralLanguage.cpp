// The tests run in no particular language, whatever the tester's is.

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace {

class NeutralLanguage : public testing::Environment {
public:
    void SetUp() override
    {
        ASSERT_EQ(::setenv("LC_ALL", "C", 1), 0); // NOLINT(concurrency-mt-unsafe): one thread
    }
};

// The test library owns it.
[[maybe_unused]] const auto* const kNeutralLanguage
    = testing::AddGlobalTestEnvironment(std::make_unique<NeutralLanguage>().release());

} // namespace
