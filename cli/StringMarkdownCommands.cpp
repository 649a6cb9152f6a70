#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/StringCommand.h"
#include "cli/StringLines.h"
#include "cli/TextArgument.h"
#include "strings/RelativeLinks.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

struct Arguments {
    std::string text;
    std::string target;
    std::string item;
};

ExitStatus showMarkdown(const Arguments& arguments)
{
    const auto text = lineOfArgument(arguments.text, "markdown");
    if (!text)
        return ExitStatus::Failure;
    printLine(markdownLine(*text));
    return ExitStatus::Success;
}

ExitStatus showRelativeLink(const Arguments& arguments)
{
    printText(CVLMarkdown::relativeLinkFor(NSURL::fileURLWithPath(arguments.target),
                                           NSURL::fileURLWithPath(arguments.item)));
    return ExitStatus::Success;
}

Command addMarkdown(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "markdown", "Show what a line of Markdown is, as JSON.",
                               "Examples:\n"
                               "  corvel string markdown '12. Milk'\n"
                               "  corvel string markdown '[pears](pears.md \"Ripe ones\")'");
    addTextArgument(command, "TEXT", arguments->text, "The line");
    return {&command, [arguments] { return showMarkdown(*arguments); }};
}

Command addRelativeLink(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "relative-link", "Show the link from one file to another.",
                               "The files need not exist.\n"
                               "\n"
                               "Examples:\n"
                               "  corvel string relative-link ~/Notes/img/pear.png ~/Notes/fruit/pears.md");
    addPathArgument(command, "TARGET", arguments->target, "The file to link to");
    addPathArgument(command, "ITEM", arguments->item, "The file that will hold the link");
    return {&command, [arguments] { return showRelativeLink(*arguments); }};
}

} // namespace

std::vector<Command> addStringMarkdownCommands(CLI::App& command)
{
    return {addMarkdown(command), addRelativeLink(command)};
}
