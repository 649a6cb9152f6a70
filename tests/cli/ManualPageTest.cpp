#include "cli/ManualPage.h"

#include "cli/Program.h"

#include <CLI/CLI.hpp>
#include <gmock/gmock.h>

#include <functional>

using testing::HasSubstr;
using testing::Not;

namespace {

/// Every command of the program, at any depth, with the page that describes it.
void forEachCommand(const CLI::App& program,
                    const std::function<void(const CLI::App& command, const ManualPage& page)>& visit)
{
    const auto pages = manualPages(program);
    visit(program, pages.front());
    std::size_t index = 1;
    for (const auto* command : program.get_subcommands({})) {
        visit(*command, pages.at(index));
        for (const auto* nested : command->get_subcommands({}))
            visit(*nested, pages.at(index));
        ++index;
    }
}

TEST(RoffText, EscapesWhatRoffWouldRead)
{
    EXPECT_EQ(roffText("--all a\\b"), "\\-\\-all a\\(rsb");
    EXPECT_EQ(roffText(".TH is no macro\n.here"), "\\&.TH is no macro\n\\&.here");
    EXPECT_EQ(roffText("'so' ~/a^b `c` \"d\""), "\\(aqso\\(aq \\(ti/a\\(hab \\(gac\\(ga \\(dqd\\(dq");
    EXPECT_EQ(roffText("caf\xC3\xA9 \xF0\x9F\x98\x80"), "caf\\[u00E9] \\[u1F600]");
    EXPECT_EQ(roffText("a\x01\tb"), "ab");
}

TEST(ManualPage, HasTheSectionsOfItsCommand)
{
    CLI::App program("Sort pears.", "pears");
    std::string basket;
    int count = 3;
    program.add_option("-b,--basket", basket, "Where they are")->required()->type_name("BASKET");
    program.add_option("--count", count, "How many")->type_name("N")->capture_default_str();
    bool isRipe = false;
    program.add_flag("--ripe", isRipe, "Only ripe ones");
    std::vector<std::string> names;
    program.add_option("NAME", names, "Their names")->type_name(" ")->required();
    program.footer("By size.\n\nExamples:\n  pears -b a b\n\nExit status: 0 always.");

    const auto page = manualPage(program, "pears", 1);
    EXPECT_EQ(page.fileName(), "pears.1");
    EXPECT_THAT(page.roff, HasSubstr(".TH \"pears\" 1 \"\" \"corvel\"\n.SH NAME\npears \\- Sort pears\n"));
    EXPECT_THAT(page.roff,
                HasSubstr("\\fBpears\\fR \\fB\\-\\-basket\\fR \\fIBASKET\\fR [\\fB\\-\\-count\\fR \\fIN\\fR] "
                          "[\\fB\\-\\-ripe\\fR] \\fINAME\\fR...\n"));
    EXPECT_THAT(page.roff,
                HasSubstr(".TP\n\\fB\\-b\\fR, \\fB\\-\\-basket\\fR \\fIBASKET\\fR\nWhere they are\n"));
    EXPECT_THAT(page.roff, HasSubstr("How many (default: 3)\n"));
    EXPECT_THAT(page.roff, HasSubstr(".PP\nBy size.\n"));
    EXPECT_THAT(page.roff, HasSubstr(".SH EXAMPLES\n.PP\n.nf\npears \\-b a b\n.fi\n"));
    EXPECT_THAT(page.roff, HasSubstr(".SH EXIT STATUS\n0 always.\n"));
    EXPECT_THAT(page.roff, Not(HasSubstr("SEE ALSO")));
}

TEST(ManualPage, ExistsForEveryCommand)
{
    CLI::App program(kProgramSummary, kProgramName);
    const auto commands = addCommands(program);
    const auto pages = manualPages(program);
    ASSERT_EQ(pages.size(), commands.size() + 1);
    EXPECT_EQ(pages.front().fileName(), "corvel.1");
    for (const auto& command : commands)
        EXPECT_THAT(
            pages,
            testing::Contains(testing::Field(&ManualPage::name, "corvel-" + command.syntax->get_name())));
}

TEST(ManualPage, NamesEveryOptionAndArgument)
{
    CLI::App program(kProgramSummary, kProgramName);
    (void)addCommands(program); // Only the declarations are wanted.
    forEachCommand(program, [](const CLI::App& command, const ManualPage& page) {
        EXPECT_THAT(page.roff, HasSubstr(roffText(command.get_description()))) << page.name;
        for (const auto* option : command.get_options()) {
            const auto name
                = option->get_positional() ? option->get_name(true) : "--" + option->get_lnames().at(0);
            EXPECT_THAT(page.roff, HasSubstr(roffText(name))) << page.name;
            EXPECT_THAT(page.roff, HasSubstr(roffText(option->get_description()))) << page.name;
        }
    });
}

TEST(ManualPage, NamesTheCommandsOfTheProgram)
{
    CLI::App program(kProgramSummary, kProgramName);
    const auto commands = addCommands(program);
    const auto page = manualPages(program).front();
    for (const auto& command : commands)
        EXPECT_THAT(page.roff, HasSubstr("\\fBcorvel\\-" + roffText(command.syntax->get_name()) + "\\fR(1)"));
}

} // namespace
