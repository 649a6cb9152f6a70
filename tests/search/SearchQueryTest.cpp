#include "platform/search/SearchQuery.h"

#include "tests/search/IndexFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string expression(std::string_view query)
{
    std::string problem;
    const auto expression = SearchQuery::expressionFor(query, problem);
    return expression ? *expression : "problem: " + problem;
}

struct Row {
    std::string_view query;
    std::string_view expression;
};

class DeepQuery : public IndexFixture { };

class QueryTable : public testing::TestWithParam<Row> { };

TEST_P(QueryTable, GivesThisExpression)
{
    EXPECT_EQ(expression(GetParam().query), GetParam().expression);
}

INSTANTIATE_TEST_SUITE_P(Language, QueryTable,
                         testing::Values(Row{"one", R"("one")"}, Row{"one two", R"(("one" AND "two"))"},
                                         Row{"one AND two", R"(("one" AND "two"))"},
                                         Row{"one OR two", R"(("one" OR "two"))"},
                                         Row{"one two OR three", R"((("one" AND "two") OR "three"))"},
                                         Row{"one NOT two", R"(("one" NOT "two"))"},
                                         Row{"one NOT two NOT three", R"(("one" NOT ("two" OR "three")))"},
                                         Row{"one AND NOT two", R"(("one" NOT "two"))"},
                                         Row{"(one OR two) three", R"((("one" OR "two") AND "three"))"},
                                         Row{R"("two words")", R"("two words")"},
                                         Row{"begin*", R"("begin*" *)"},
                                         Row{R"("two wor"*)", R"("two wor" *)"},
                                         Row{"or and not", R"(("or" AND "and" AND "not"))"}));

INSTANTIATE_TEST_SUITE_P(
    NoSyntaxErrors, QueryTable,
    testing::Values(Row{"it's", R"("it's")"}, Row{"a-b", R"("a-b")"}, Row{"user@host", R"("user@host")"},
                    Row{"C++", R"("C++")"}, Row{"name:x", R"("name:x")"},
                    Row{"^x + {y}", R"(("^x" AND "{y}"))"}, Row{"NEAR(a b)", R"(("NEAR" AND ("a" AND "b")))"},
                    Row{R"("open)", R"("open")"}, Row{"(open", R"("open")"}, Row{"close)", R"("close")"},
                    Row{"a ) b", R"(("a" AND "b"))"}, Row{"one OR", R"("one")"}, Row{"OR one", R"("one")"},
                    Row{"one - two", R"(("one" AND "two"))"}, Row{"one NOT !!!", R"("one")"}));

INSTANTIATE_TEST_SUITE_P(
    Problems, QueryTable,
    testing::Values(Row{"", "problem: there is no word to search for"},
                    Row{" \t ", "problem: there is no word to search for"},
                    Row{"*** \"\" ()", "problem: there is no word to search for"},
                    Row{"NOT one", "problem: NOT needs something before it to exclude from"},
                    Row{"a OR NOT b", "problem: NOT needs something before it to exclude from"}));

TEST(SearchQuery, DropsNULs)
{
    EXPECT_EQ(expression(std::string_view("a\0b", 3)), R"("ab")");
}

// As deep and as mixed as it may be: more brackets than this were too many for FTS5's parser.
TEST_F(DeepQuery, IsUnderstood)
{
    ASSERT_TRUE(add("/a", "x y z"));
    std::string query = "x";
    for (std::size_t depth = 1; depth < SearchQuery::kMaximumNesting; ++depth)
        query = "(z OR y x " + query + " NOT (q OR w) NOT r)";
    EXPECT_EQ(found(query), (Paths{"/a"}));
    query = "x";
    for (std::size_t depth = 1; depth < SearchQuery::kMaximumNesting; ++depth)
        query = "(q OR x NOT r NOT (s " + std::string(depth == 1 ? "t" : "u") + ") OR y " + query + ")";
    EXPECT_EQ(found(query), (Paths{"/a"}));
}

TEST(SearchQuery, RefusesWhatIsBeyondItsBounds)
{
    EXPECT_TRUE(
        expression(std::string(10'000, '(') + "a").starts_with("problem: the query has too many brackets"));
    std::string words;
    for (std::size_t count = 0; count <= SearchQuery::kMaximumTermCount; ++count)
        words += "word ";
    EXPECT_EQ(expression(words), "problem: the query has too many words");
}

} // namespace
