#include "platform/search/SearchableName.h"

#include <gtest/gtest.h>

namespace {

TEST(SearchableName, KeepsPlainNames)
{
    EXPECT_EQ(searchableName("plain name.txt"), "plain name.txt");
    EXPECT_EQ(searchableName("Title.txt"), "Title.txt");
    EXPECT_EQ(searchableName(""), "");
}

TEST(SearchableName, AddsWordsSplitAtCaseChangesAndDigits)
{
    EXPECT_EQ(searchableName("camelCase.txt"), "camelCase.txt camel Case.txt");
    EXPECT_EQ(searchableName("HTTPServer"), "HTTPServer HTTP Server");
    EXPECT_EQ(searchableName("IMG2024Trip"), "IMG2024Trip IMG 2024 Trip");
    EXPECT_EQ(searchableName("überÄnderung"), "überÄnderung über Änderung");
}

TEST(SearchableName, KeepsDecomposedAccentsWithTheirLetter)
{
    EXPECT_EQ(searchableName("e\u0301te\u0301Plage"), "e\u0301te\u0301Plage e\u0301te\u0301 Plage");
}

TEST(SearchableName, ReplacesIllFormedBytes)
{
    EXPECT_EQ(searchableName("a\xFF"), "a\uFFFD");
}

} // namespace
