#include "documents/PageFileNames.h"

#include <gtest/gtest.h>

TEST(PageFileNames, LeadImagesIntoTheFolder)
{
    EXPECT_EQ(pageWithFilesInFolder(R"(<p>a<img src="file:///b%20c.png" alt="b c.png"></p>)", u"x files"),
              R"(<p>a<img src="x%20files/b%20c.png" alt="b c.png"></p>)");
}

TEST(PageFileNames, MakeLinksOfOtherFiles)
{
    EXPECT_EQ(pageWithFilesInFolder(R"(<object data="file:///a.zip">a.zip</object><p>)", u"f"),
              R"(<a href="f/a.zip">a.zip</a><p>)");
}

TEST(PageFileNames, LeadBesideThePageWithoutAFolder)
{
    EXPECT_EQ(pageWithFilesInFolder(R"(<img src="file:///a:b.png" alt="a:b.png">)", u""),
              R"(<img src="./a:b.png" alt="a:b.png">)");
}

TEST(PageFileNames, LeaveEverythingElse)
{
    const auto* const page
        = R"(<img src="data:image/png;base64,UE5H" alt=""><a href="file:///a">file:///b</a>)";
    EXPECT_EQ(pageWithFilesInFolder(page, u"f"), page);
    EXPECT_EQ(pageWithFilesInFolder("", u"f"), "");
    EXPECT_EQ(pageWithFilesInFolder(R"(<object data="file:///a)", u"f"), R"(<a href="f/a</a>)");
}
