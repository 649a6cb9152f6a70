#include "platform/foundation/NSError.h"

#include "platform/foundation/NSUUID.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <regex>
#include <set>

namespace {

TEST(NSError, DescribesItself)
{
    EXPECT_EQ(NSError("Domain", 7).localizedDescription(), "Domain error 7");
    const NSError error("Domain", 7,
                        {{std::string(NSLocalizedDescriptionKey), std::string("what went wrong")}});
    EXPECT_EQ(error.localizedDescription(), "what went wrong");
}

TEST(NSError, NamesTheFileAndTheSystemsReason)
{
    const auto error = NSError::errorWithErrno(ENOENT, "/a/b");
    EXPECT_EQ(error.domain(), "NSPOSIXErrorDomain");
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_EQ(error.localizedDescription(), "/a/b: No such file or directory");
}

TEST(NSError, FillsASlotThatIsThere)
{
    NSError slot;
    setError(&slot, NSError("Domain", 1));
    EXPECT_EQ(slot.code(), 1);
    setError(nullptr, NSError("Domain", 2));
}

TEST(NSUUID, IsRandomAndWellFormed)
{
    const std::regex form("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    std::set<std::string> seen;
    for (int count = 0; count < 100; ++count) {
        const auto text = NSUUID::UUIDString();
        EXPECT_TRUE(std::regex_match(text, form)) << text;
        EXPECT_TRUE(seen.insert(text).second);
    }
}

} // namespace
