#include "cli/HitLines.h"

#include <gtest/gtest.h>

#include <string>

namespace {

SKSearchHit hit(const std::string& path, const std::string& snippet)
{
    return {NSURL::fileURLWithPath(path), 1, snippet, std::nullopt};
}

std::string marked(const std::string& text)
{
    return kMatchStart + text + kMatchEnd;
}

TEST(HitLines, ShowThePathAndTheSnippetAsOneLine)
{
    EXPECT_EQ(hitText(hit("/x/a.txt", "\tthe " + marked("harbour") + "\n\n lights\n"), MatchStyle::Brackets),
              "/x/a.txt\n    the [harbour] lights");
    EXPECT_EQ(hitText(hit("/x/a.txt", marked("harbour")), MatchStyle::Bold),
              "/x/a.txt\n    \033[1mharbour\033[0m");
}

TEST(HitLines, OfAnItemWithoutTextAreItsPath)
{
    EXPECT_EQ(hitText(hit("/x/a.png", ""), MatchStyle::Brackets), "/x/a.png");
}

TEST(HitLines, OfAnAttachmentSayWhereItIs)
{
    auto attachment = hit("/x/mail.eml/menu.txt", "quince");
    attachment.parent = NSURL::fileURLWithPath("/x/mail.eml");
    EXPECT_EQ(hitText(attachment, MatchStyle::Brackets), "menu.txt\n  in /x/mail.eml\n    quince");
}

TEST(HitLines, CannotSteerATerminalThroughTheSnippet)
{
    EXPECT_EQ(hitText(hit("/x/a.txt",
                          "red \033[31m \xC2\x9B"
                          "2J"),
                      MatchStyle::Bold),
              "/x/a.txt\n    red ?[31m ?2J");
}

} // namespace
