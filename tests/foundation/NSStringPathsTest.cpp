#include "platform/foundation/NSStringPaths.h"

#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::u16string>;

TEST(NSStringPaths, FindTheExtension)
{
    struct Case {
        std::u16string_view path;
        std::u16string_view extension;
        std::u16string_view withoutExtension;
    };

    const Case cases[] = {
        {u"/tmp/scratch.tiff", u"tiff", u"/tmp/scratch"},
        {u"scratch.tar.gz", u"gz", u"scratch.tar"},
        {u"scratch", u"", u"scratch"},
        {u".scratch", u"", u".scratch"},
        {u"/tmp/.scratch", u"", u"/tmp/.scratch"},
        {u"scratch.", u"", u"scratch."},
        {u"/tmp.d/scratch", u"", u"/tmp.d/scratch"},
        {u"scratch.bundle/", u"bundle", u"scratch"},
        {u"/", u"", u"/"},
        {u"", u"", u""},
    };
    for (const auto& example : cases) {
        EXPECT_EQ(pathExtension(example.path), example.extension);
        EXPECT_EQ(stringByDeletingPathExtension(example.path), example.withoutExtension);
    }
}

TEST(NSStringPaths, FindTheLastComponent)
{
    EXPECT_EQ(lastPathComponent(u"/tmp/scratch.tiff"), u"scratch.tiff");
    EXPECT_EQ(lastPathComponent(u"/tmp/"), u"tmp");
    EXPECT_EQ(lastPathComponent(u"///"), u"/");
    EXPECT_EQ(lastPathComponent(u""), u"");
}

TEST(NSStringPaths, SplitIntoComponents)
{
    EXPECT_EQ(pathComponents(u"/a//b"), (Strings{u"/", u"a", u"b"}));
    EXPECT_EQ(pathComponents(u"a/b/"), (Strings{u"a", u"b", u"/"}));
    EXPECT_EQ(pathComponents(u"/"), (Strings{u"/"}));
    EXPECT_EQ(pathComponents(u"//"), (Strings{u"/"}));
    EXPECT_EQ(pathComponents(u""), Strings());
}

} // namespace
