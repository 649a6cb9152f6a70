#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>

using testing::IsEmpty;

namespace {

class ChecklistCommand : public Transcript {
protected:
    [[nodiscard]] ChildProcess::Outcome checklist(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), "checklist");
        return corvel(arguments);
    }
};

TEST_F(ChecklistCommand, ListsItemsWithTheirStateAndLevel)
{
    folder().write("a.md",
                   "# A\n\n- [ ] Milk *fresh*\n    - [x] Jug\n- Not this\n* [X] Bread\n\n"
                   "```\n- [ ] code\n```\n");
    const auto outcome = checklist({"a.md"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "- [ ] Milk fresh\n    - [x] Jug\n- [x] Bread\n");
    EXPECT_THAT(outcome.error, IsEmpty());
}

TEST_F(ChecklistCommand, ListsOpenOrDoneItemsAlone)
{
    folder().write("a.md", "- [ ] a\n- [x] b\n- [ ] c\n");
    EXPECT_EQ(checklist({"--open", "a.md"}).output, "- [ ] a\n- [ ] c\n");
    EXPECT_EQ(checklist({"--done", "a.md"}).output, "- [x] b\n");
}

TEST_F(ChecklistCommand, AnswersInJSON)
{
    folder().write("a.md", "- [ ] a \"b\"\n    - [x] c\n");
    EXPECT_EQ(checklist({"--json", "a.md"}).output,
              "{\"done\":false,\"level\":0,\"text\":\"a \\\"b\\\"\"}\n"
              "{\"done\":true,\"level\":1,\"text\":\"c\"}\n");
}

TEST_F(ChecklistCommand, ReadsBoxesOfPages)
{
    folder().write(
        "a.html",
        "<ul><li><input type=checkbox checked> a<ul><li><input type=checkbox> b</ul><li>\u2610 c</ul>");
    EXPECT_EQ(checklist({"a.html"}).output, "- [x] a\n    - [ ] b\n- [ ] c\n");
}

TEST_F(ChecklistCommand, ListsAParagraphAsOneItem)
{
    folder().write("a.md", "- [ ] a\\\n  b\n- [x] c\n  d\n");
    EXPECT_EQ(checklist({"a.md"}).output, "- [ ] a b\n- [x] c d\n");
    folder().write("a.html", "<ul><li><input type=checkbox>a<br>b</ul>");
    EXPECT_EQ(checklist({"a.html"}).output, "- [ ] a b\n");
}

TEST_F(ChecklistCommand, ListsNumberedItemsWithBoxes)
{
    folder().write("a.md", "1. [ ] a\n2. [x] b\n   1. [X] c\n3. d\n");
    EXPECT_EQ(checklist({"a.md"}).output, "- [ ] a\n- [x] b\n    - [x] c\n");
    folder().write("a.html", "<ol><li><input type=checkbox checked>a<li>b</ol>");
    EXPECT_EQ(checklist({"a.html"}).output, "- [x] a\n");
}

TEST_F(ChecklistCommand, ReadsPlainTextAsMarkdown)
{
    folder().write("a.txt",
                   "Shop\n- [ ] a\n    - [x] b\n\n\u2610 c\n\u2611 d\r\n  \u2714\te\n- \u2610 f\n\u2610");
    EXPECT_EQ(checklist({"a.txt"}).output,
              "- [ ] a\n    - [x] b\n- [ ] c\n- [x] d\n    - [x] e\n- [ ] f\n- [ ] \n");
}

TEST_F(ChecklistCommand, KeepsLevelsWithinTheirBound)
{
    std::string markdown;
    for (int level = 0; level < 8; ++level)
        markdown += std::string(static_cast<std::size_t>(4 * level), ' ') + "- [ ] x\n";
    folder().write("a.md", markdown);
    const auto output = checklist({"a.md"}).output;
    EXPECT_TRUE(output.ends_with("\n" + std::string(20, ' ') + "- [ ] x\n")) << output;
}

TEST_F(ChecklistCommand, IsEmptyForTextWithoutItems)
{
    folder().write("a.txt", "- [] no box\n[ ] no item\n\u2610no blank\n");
    folder().write("b.md", "");
    for (const auto* name : {"a.txt", "b.md"}) {
        const auto outcome = checklist({name});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.output, IsEmpty());
    }
}

TEST_F(ChecklistCommand, SaysWhyAFileIsNotRead)
{
    const auto outcome = checklist({"missing.md"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, testing::EndsWith("missing.md: No such file or directory\n"));
}

} // namespace
