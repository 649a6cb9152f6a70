#include "tests/transcript/ChildProcess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

namespace {

std::set<std::string> pages()
{
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(CORVEL_MANUAL_DIR)) {
        if (entry.is_regular_file())
            found.insert(entry.path().native());
    }
    return found;
}

bool isThere(const std::string& program)
{
    const ChildProcess::Outcome outcome
        = ChildProcess({"/bin/sh", "-c", "command -v " + program}, "/").wait();
    return outcome.status == 0;
}

TEST(Manual, IsBuilt)
{
    const std::string folder = CORVEL_MANUAL_DIR;
    for (const auto* page :
         {"/man1/corvel.1", "/man1/corvel-index.1", "/man1/corvel-string.1", "/man8/corvel-indexing.8"})
        EXPECT_EQ(pages().count(folder + page), 1U) << page;
}

TEST(Manual, IsReadWithoutAWarning)
{
    if (!isThere("groff"))
        GTEST_SKIP() << "groff is not installed";
    for (const auto& page : pages()) {
        const auto outcome
            = ChildProcess({"/usr/bin/env", "groff", "-man", "-Tutf8", "-P-cbou", "-ww", page}, "/").wait();
        EXPECT_EQ(outcome.status, 0) << page;
        EXPECT_EQ(outcome.error, "") << page;
        EXPECT_NE(outcome.output.find("SYNOPSIS"), std::string::npos) << page;
    }
}

} // namespace
