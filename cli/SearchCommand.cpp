#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/HitLines.h"
#include "cli/JSONLines.h"
#include "platform/search/SKIndex.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr const char* kExplanation
    = "The best hits come first. Words are found in any order, \"words in quotes\" next to\n"
      "each other, and begin* finds words that begin so.\n"
      "\n"
      "Examples:\n"
      "  corvel search --index ~/library.index 'harbour lights'\n"
      "  corvel search --index ~/library.index --json --limit 5 invoice\n"
      "  corvel search --index ~/library.index --json - < queries.txt";

struct SearchArguments {
    std::string indexPath;
    std::string query;
    std::size_t limit = SKSearchOptions().limit;
    std::size_t offset = 0;
    bool isJSON = false;
};

SKSearchOptions searchOptions(const SearchArguments& arguments)
{
    SKSearchOptions options;
    options.limit = arguments.limit;
    options.offset = arguments.offset;
    if (!arguments.isJSON) {
        options.matchStart = kMatchStart;
        options.matchEnd = kMatchEnd;
    }
    return options;
}

void printHits(const std::vector<SKSearchHit>& hits, bool isJSON)
{
    if (isJSON) {
        printLine(hitsLine(hits));
        return;
    }
    for (const auto& hit : hits)
        printLine(hitText(hit, isOutputStyled() ? MatchStyle::Bold : MatchStyle::Brackets));
}

/// Prints the hits, for a query that cannot be understood none. @return whether it could.
bool answer(const std::string& query, const SKIndex& index, const SearchArguments& arguments)
{
    std::vector<SKSearchHit> hits;
    NSError error;
    const bool isUnderstood = index.search(query, searchOptions(arguments), hits, &error);
    if (!isUnderstood) {
        hits.clear();
        printError(query, errorMessage(error));
    }
    printHits(hits, arguments.isJSON);
    return isUnderstood;
}

/// Answers a query for each line of standard input; a line of people's hits ends with an empty line.
bool answerLines(const SKIndex& index, const SearchArguments& arguments)
{
    bool areUnderstood = true;
    std::string query;
    while (isOutputIntact() && std::getline(std::cin, query)) {
        if (!answer(query, index, arguments))
            areUnderstood = false;
        if (!arguments.isJSON)
            printLine({});
    }
    return areUnderstood;
}

ExitStatus searchIndex(const SearchArguments& arguments)
{
    NSError error;
    const auto index
        = SKIndex::openWithURL(NSURL::fileURLWithPath(arguments.indexPath), SKIndexAccess::Read, &error);
    if (!index) {
        printError(arguments.indexPath, errorReason(error, arguments.indexPath));
        return ExitStatus::Failure;
    }
    const bool isUnderstood = arguments.query == "-" ? answerLines(*index, arguments)
                                                     : answer(arguments.query, *index, arguments);
    return isUnderstood ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace

Command addSearchCommand(CLI::App& program)
{
    auto arguments = std::make_shared<SearchArguments>();
    auto& command = addCommand(program, "search", "Search an index.", kExplanation);
    addIndexOption(command, arguments->indexPath);
    const CLI::Validator notNegative(
        [](std::string& value) {
            return value.starts_with('-') ? std::string("a number from 0 on is wanted") : std::string();
        },
        "");
    command.add_option("--limit", arguments->limit, "How many hits to show")
        ->type_name("N")
        ->check(notNegative)
        ->capture_default_str();
    command.add_option("--offset", arguments->offset, "How many of the best hits to leave out")
        ->type_name("N")
        ->check(notNegative)
        ->capture_default_str();
    command.add_flag("--json", arguments->isJSON, "One line of JSON for each query");
    command
        .add_option("QUERY", arguments->query,
                    "What to look for; - reads queries from standard input, one a line")
        ->required()
        ->type_name(" ");
    return {&command, [arguments] { return searchIndex(*arguments); }};
}
