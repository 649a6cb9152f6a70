#include "fuzz/Mutator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

constexpr std::size_t kCount = 2000;

std::vector<std::string> mutations(const std::vector<std::string>& seeds)
{
    Mutator mutator(seeds);
    std::vector<std::string> inputs(kCount);
    std::generate(inputs.begin(), inputs.end(), [&mutator] { return mutator.next(); });
    return inputs;
}

} // namespace

TEST(Mutator, MakesTheSameInputsEachTime)
{
    EXPECT_EQ(mutations({"one seed", "another"}), mutations({"one seed", "another"}));
}

TEST(Mutator, MakesShorterLongerAndEquallyLongInputs)
{
    const std::string seed = "a seed of some length";
    const auto inputs = mutations({seed});
    const auto count
        = [&inputs](auto condition) { return std::count_if(inputs.begin(), inputs.end(), condition); };
    EXPECT_GT(count([&](const std::string& input) { return input.size() < seed.size(); }), 100);
    EXPECT_GT(count([&](const std::string& input) { return input.size() > seed.size(); }), 100);
    EXPECT_GT(count([&](const std::string& input) { return input.size() == seed.size() && input != seed; }),
              100);
    EXPECT_GT(std::set<std::string>(inputs.begin(), inputs.end()).size(), kCount / 2);
}

TEST(Mutator, PutsSeedsTogether)
{
    const auto inputs = mutations({"aaaaaaaa", "zzzzzzzz"});
    EXPECT_TRUE(std::any_of(inputs.begin(), inputs.end(), [](const std::string& input) {
        return input.find("aa") != std::string::npos && input.find("zz") != std::string::npos;
    }));
}

TEST(Mutator, BeginsWithNothingWhereThereIsNoSeed)
{
    const auto inputs = mutations({});
    EXPECT_TRUE(std::any_of(inputs.begin(), inputs.end(), [](const auto& input) { return !input.empty(); }));
}

TEST(Mutator, KeepsWithinItsLength)
{
    for (const auto& input : mutations({std::string(Mutator::kMaximumByteCount + 1, 'x')}))
        ASSERT_LE(input.size(), Mutator::kMaximumByteCount);
}
