#include "platform/foundation/NSURL.h"

#include <gtest/gtest.h>

namespace {

std::string resolved(std::string_view relative, std::string_view base)
{
    const auto url = NSURL::URLWithString(relative, *NSURL::URLWithString(base));
    return url ? url->absoluteString() : "none";
}

} // namespace

/// The examples of RFC 3986, section 5.4. "http:g" stands for itself, as the strict reading has it.
TEST(NSURLResolution, FollowsTheStandardsExamples)
{
    struct Case {
        std::string_view relative;
        std::string_view expected;
    };

    const Case cases[] = {
        {"g:h", "g:h"},
        {"g", "http://a/b/c/g"},
        {"./g", "http://a/b/c/g"},
        {"g/", "http://a/b/c/g/"},
        {"/g", "http://a/g"},
        {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"},
        {"g?y", "http://a/b/c/g?y"},
        {"#s", "http://a/b/c/d;p?q#s"},
        {"g#s", "http://a/b/c/g#s"},
        {"g?y#s", "http://a/b/c/g?y#s"},
        {";x", "http://a/b/c/;x"},
        {"", "http://a/b/c/d;p?q"},
        {".", "http://a/b/c/"},
        {"./", "http://a/b/c/"},
        {"..", "http://a/b/"},
        {"../", "http://a/b/"},
        {"../g", "http://a/b/g"},
        {"../..", "http://a/"},
        {"../../g", "http://a/g"},
        {"../../../g", "http://a/g"},
        {"../../../../g", "http://a/g"},
        {"/./g", "http://a/g"},
        {"/../g", "http://a/g"},
        {"g.", "http://a/b/c/g."},
        {"..g", "http://a/b/c/..g"},
        {"./../g", "http://a/b/g"},
        {"./g/.", "http://a/b/c/g/"},
        {"g/./h", "http://a/b/c/g/h"},
        {"g/../h", "http://a/b/c/h"},
        {"g;x=1/../y", "http://a/b/c/y"},
        {"g?y/../x", "http://a/b/c/g?y/../x"},
        {"g#s/../x", "http://a/b/c/g#s/../x"},
        {"http:g", "http:g"},
    };
    for (const auto& [relative, expected] : cases)
        EXPECT_EQ(resolved(relative, "http://a/b/c/d;p?q"), expected) << relative;
}

TEST(NSURLResolution, TakesABaseWithoutAPathForItsRoot)
{
    EXPECT_EQ(resolved("index.xml", "https://www.swift.org"), "https://www.swift.org/index.xml");
}

TEST(NSURLResolution, RefusesWhatIsNoURL)
{
    EXPECT_EQ(resolved("a b", "https://example.com/"), "none");
}
