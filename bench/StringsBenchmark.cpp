// How the string operations grow with their text, from 10,000 to 1,000,000 UTF-16 units: each should be
// linear, for ordinary text and for the text that is worst for it.

#include "bench/SampleText.h"
#include "platform/foundation/NSStringComparison.h"
#include "platform/foundation/NSStringSearch.h"
#include "platform/foundation/Unicode.h"
#include "strings/Capitalization.h"
#include "strings/FileNames.h"
#include "strings/FilenameGeneration.h"
#include "strings/Hashtags.h"
#include "strings/MarkdownChecklists.h"
#include "strings/MarkdownLines.h"
#include "strings/MarkdownLinks.h"
#include "strings/SearchRanges.h"
#include "strings/StringCleaning.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace TSExtensions;
using namespace CVLMarkdown;

namespace {

constexpr std::int64_t kSmallest = 10'000;
constexpr std::int64_t kLargest = 1'000'000;
constexpr int kStep = 10;

using MakeText = std::u16string (*)(std::size_t length);
using Operation = void (*)(const std::u16string& text);

std::u16string prose(std::size_t length)
{
    return UTF16FromUTF8(sampleText(1, length));
}

/// Letters with marks, which take the long way through folding.
std::u16string accents(std::size_t length)
{
    std::u16string text;
    while (text.size() < length)
        text += u"\u00E9te\u0301 \u0416\u0443\u043A ";
    return text;
}

template <char16_t unit> std::u16string only(std::size_t length)
{
    return std::u16string(length, unit);
}

std::u16string tags(std::size_t length)
{
    std::u16string text;
    while (text.size() < length)
        text += u"#to_do#done 12 ";
    return text;
}

std::u16string images(std::size_t length)
{
    std::u16string text;
    while (text.size() < length)
        text += u"![](";
    return text;
}

std::u16string boxes(std::size_t length)
{
    std::u16string text;
    while (text.size() < length)
        text += u"- [x] milk\n";
    return text;
}

void growing(benchmark::State& state, MakeText make, Operation operation)
{
    const auto text = make(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ :
         state) // NOLINT(clang-analyzer-deadcode.DeadStores): what the library asks for
        operation(text);
    state.SetComplexityN(state.range(0));
}

struct Growth {
    const char* name;
    MakeText make;
    Operation operation;
};

template <typename Value> void keep(Value value)
{
    benchmark::DoNotOptimize(value);
}

const Growth kGrowths[] = {
    {"generateFilename/prose", prose, [](const std::u16string& text) { keep(generateFilename(text)); }},
    {"generateFilename/oneSentence", only<u'a'>,
     [](const std::u16string& text) { keep(generateFilename(text)); }},
    {"sanitize/prose", prose, [](const std::u16string& text) { keep(stringSanitizedForFileName(text)); }},
    {"sanitize/dots", only<u'.'>, [](const std::u16string& text) { keep(stringSanitizedForFileName(text)); }},
    {"isEqualToFilename/prose", prose,
     [](const std::u16string& text) { keep(isEqualToFilename(text, text)); }},
    {"isEqualToFilename/accents", accents,
     [](const std::u16string& text) { keep(isEqualToFilename(text, text)); }},
    {"localizedStandardCompare/prose", prose,
     [](const std::u16string& text) { keep(localizedStandardCompare(text, text + u"x")); }},
    {"hashtags/tags", tags,
     [](const std::u16string& text) {
         keep(tagNamesAndRangesFromHashtags(text, nullptr, NumericHashtags::Rejected));
     }},
    {"hashtags/signs", only<u'#'>,
     [](const std::u16string& text) {
         keep(tagNamesAndRangesFromHashtags(text, nullptr, NumericHashtags::Rejected));
     }},
    {"capitalize/prose", prose, [](const std::u16string& text) { keep(smartCapitalizedString(text)); }},
    {"ranges/prose", prose,
     [](const std::u16string& text) { keep(localizedStandardRangesOfString(text, u"a")); }},
    {"ranges/accents", accents,
     [](const std::u16string& text) { keep(localizedStandardRangesOfString(text, u"ete")); }},
    {"ranges/longTerm", only<u'a'>,
     [](const std::u16string& text) {
         keep(localizedStandardRangesOfString(text, text.substr(text.size() / 2) + u"b"));
     }},
    {"removingNewlinesAndTabs/lineEnds", only<u'\n'>,
     [](const std::u16string& text) { keep(stringByRemovingNewlinesAndTabs(text)); }},
    {"removingControls/prose", prose,
     [](const std::u16string& text) { keep(stringByRemovingControlAndIllegalCharacters(text)); }},
    {"standardizingNewlines/returns", only<u'\r'>,
     [](const std::u16string& text) { keep(stringByStandardizingNewlines(text)); }},
    {"escapingQuotes/quotes", only<u'"'>,
     [](const std::u16string& text) { keep(stringByEscapingQuotes(text)); }},
    {"percentEncoding/accents", accents,
     [](const std::u16string& text) { keep(percentEncodedURLString(text)); }},
    {"removingImages/open", images, [](const std::u16string& text) { keep(markdownByRemovingImages(text)); }},
    {"checklistItems/boxes", boxes, [](const std::u16string& text) { keep(completedChecklistItems(text)); }},
    {"listType/quoteMarks", only<u'>'>,
     [](const std::u16string& text) { keep(getListTypeAndCurrentBullet(text)); }},
    {"link/brackets", only<u'['>, [](const std::u16string& text) { keep(getLink(text)); }},
};

} // namespace

int main(int argumentCount, char** arguments)
{
    for (const auto& growth : kGrowths)
        benchmark::RegisterBenchmark(growth.name, growing, growth.make, growth.operation)
            ->RangeMultiplier(kStep)
            ->Range(kSmallest, kLargest)
            ->Complexity()
            ->Unit(benchmark::kMicrosecond);
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
}
