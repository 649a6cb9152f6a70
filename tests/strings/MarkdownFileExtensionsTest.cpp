#include "strings/MarkdownFileExtensions.h"

#include <gtest/gtest.h>

using CVLMarkdown::isFileExtensionSupportedMarkdownExtension;

namespace {

TEST(MarkdownFileExtensions, AreThoseOfTheDeclaredType)
{
    EXPECT_TRUE(isFileExtensionSupportedMarkdownExtension(u"md"));
    EXPECT_TRUE(isFileExtensionSupportedMarkdownExtension(u"markdown"));
    EXPECT_TRUE(isFileExtensionSupportedMarkdownExtension(u"mdown"));
    for (const auto* other : {u"txt", u"", u".md", u"md ", u"html", u"md markdown"})
        EXPECT_FALSE(isFileExtensionSupportedMarkdownExtension(other));
}

TEST(MarkdownFileExtensions, AreComparedAsFileNamesAre)
{
    EXPECT_TRUE(isFileExtensionSupportedMarkdownExtension(u"MD"));
    EXPECT_TRUE(isFileExtensionSupportedMarkdownExtension(u"m\u0301d"));
    EXPECT_TRUE(isFileExtensionSupportedMarkdownExtension(u"\uFF4D\uFF44"));
}

} // namespace
