#include "markdown/MarkdownTarget.h"

#include <gtest/gtest.h>

TEST(MarkdownTarget, ReadsTargetsOfBothKinds)
{
    struct Case {
        std::u16string_view text;
        std::u16string_view target;
        std::size_t length;
    };

    for (const auto& [text, target, length] : {
             Case{u"(a)b", u"a", 3},
             Case{u"()", u"", 2},
             Case{u"( )", u"", 3},
             Case{u"(a(b)c)", u"a(b)c", 7},
             Case{u"(a\\)b)", u"a)b", 6},
             Case{u"(<a b>)", u"a b", 7},
             Case{u"(a \"t\")", u"a", 7},
             Case{u"(a\n't)' )", u"a", 9},
             Case{u"(<> \"t\")", u"", 8},
         }) {
        const auto found = markdownTargetAtStart(text);
        ASSERT_TRUE(found) << length;
        EXPECT_EQ(found->text, target);
        EXPECT_EQ(found->length, length);
    }
}

TEST(MarkdownTarget, TakesNothingElseForOne)
{
    for (const auto* text : {u"", u"a", u"(", u"(a", u"(a b)", u"(<a", u"(<a\nb>)", u"(a \"t)",
                             u"(a \"t\" b)", u"(<a>b)", u"(a(b)"})
        EXPECT_FALSE(markdownTargetAtStart(text));
}
