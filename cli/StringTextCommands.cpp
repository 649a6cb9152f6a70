#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/StringCommand.h"
#include "cli/StringLines.h"
#include "cli/TextArgument.h"
#include "strings/Capitalization.h"
#include "strings/Hashtags.h"
#include "strings/SearchRanges.h"
#include "strings/TimeIntervals.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

struct Arguments {
    std::string text;
    std::string term;
    double seconds = 0;
    bool allowsNumbers = false;
};

ExitStatus showHashtags(const Arguments& arguments)
{
    const auto text = textOfArgument(arguments.text, "hashtags");
    if (!text)
        return ExitStatus::Failure;
    const auto numeric
        = arguments.allowsNumbers ? TSExtensions::NumericHashtags::Allowed : TSExtensions::numericHashtags();
    std::vector<NSRange> ranges;
    const auto names = TSExtensions::tagNamesAndRangesFromHashtags(*text, &ranges, numeric);
    printLine(hashtagsLine(names, ranges));
    return ExitStatus::Success;
}

ExitStatus showCapitalized(const Arguments& arguments)
{
    const auto text = textOfArgument(arguments.text, "capitalize");
    if (!text)
        return ExitStatus::Failure;
    printText(TSExtensions::smartCapitalizedString(*text));
    return ExitStatus::Success;
}

ExitStatus showRemaining(const Arguments& arguments)
{
    printText(TSExtensions::stringForTimeInterval(arguments.seconds));
    return ExitStatus::Success;
}

ExitStatus showRanges(const Arguments& arguments)
{
    if (arguments.term == "-" && arguments.text == "-")
        throw UsageError("only one of TERM and TEXT can come from standard input");
    const auto term = lineOfArgument(arguments.term, "ranges");
    const auto text = term ? textOfArgument(arguments.text, "ranges") : std::nullopt;
    if (!text)
        return ExitStatus::Failure;
    printLine(rangesLine(TSExtensions::localizedStandardRangesOfString(*text, *term)));
    return ExitStatus::Success;
}

Command addHashtags(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "hashtags", "Show the tags of a text, as JSON.",
                               "Examples:\n"
                               "  corvel string hashtags 'Buy #milk for the #summer_party'");
    command.add_flag("--numeric", arguments->allowsNumbers,
                     "Take tags of digits alone, whatever the user's defaults say");
    addTextArgument(command, "TEXT", arguments->text, "The text");
    return {&command, [arguments] { return showHashtags(*arguments); }};
}

Command addCapitalize(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "capitalize", "Capitalise the words that have no capital letter.",
                               "Examples:\n"
                               "  corvel string capitalize 'hello macOS world'");
    addTextArgument(command, "TEXT", arguments->text, "The text");
    return {&command, [arguments] { return showCapitalized(*arguments); }};
}

Command addRemaining(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "remaining", "Say how much time remains, in the user's language.",
                               "Examples:\n"
                               "  corvel string remaining 5400");
    command.add_option("SECONDS", arguments->seconds, "The time in seconds")->required()->type_name(" ");
    return {&command, [arguments] { return showRemaining(*arguments); }};
}

Command addRanges(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "ranges", "Show where a term occurs in a text, as JSON.",
                               "Case and diacritics do not count.\n"
                               "\n"
                               "Examples:\n"
                               "  corvel string ranges cafe 'Two caf\xC3\xA9s and a CAFE'");
    addTextArgument(command, "TERM", arguments->term, "What to look for");
    addTextArgument(command, "TEXT", arguments->text, "The text");
    return {&command, [arguments] { return showRanges(*arguments); }};
}

} // namespace

std::vector<Command> addStringTextCommands(CLI::App& command)
{
    return {addHashtags(command), addCapitalize(command), addRemaining(command), addRanges(command)};
}
