// How the cost of rich text grows: texts of 10,000, 100,000 and 1,000,000 units with a run every 20 units,
// and every operation over the whole text. Linear is a growth of 1.

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedString.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <limits>
#include <malloc.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr NSUInteger kRunLength = 20;
constexpr std::array<NSUInteger, 3> kLengths{10'000, 100'000, 1'000'000};

std::u16string characters(NSUInteger length)
{
    std::u16string text(length, u'x');
    for (NSUInteger index = 6; index < length; index += 7)
        text[index] = u' ';
    for (NSUInteger index = 79; index < length; index += 80)
        text[index] = u'\n';
    return text;
}

NSAttributedString styled(NSUInteger length)
{
    NSMutableAttributedString text(characters(length));
    NSUInteger number = 0;
    for (NSUInteger start = 0; start < length; start += kRunLength, ++number)
        text.setAttributes({{u"Number", number % 97}, {u"Parity", number % 2}}, {start, kRunLength});
    return text;
}

struct Operation {
    std::string name;
    std::function<void(NSMutableAttributedString&)> run;
};

void replaceRuns(NSMutableAttributedString& text, bool reverse)
{
    text.enumerateAttribute(u"Parity", {0, text.length()}, {.reverse = reverse},
                            [&text](const NSAny& value, NSRange range, bool& /*stop*/) {
                                text.replaceCharactersInRange(
                                    range, value.boolValue() ? u"longer than it was" : u"-");
                            });
}

std::vector<Operation> operations()
{
    return {
        {"build",
         [](NSMutableAttributedString& text) { text = NSMutableAttributedString(styled(text.length())); }},
        {"enumerate",
         [](NSMutableAttributedString& text) {
             NSUInteger sum = 0;
             text.enumerateAttribute(u"Number", [&sum](const NSAny& value, NSRange range, bool& /*stop*/) {
                 sum += range.length + static_cast<NSUInteger>(value.integerValue());
             });
             if (sum == 0)
                 throw std::logic_error("nothing was visited");
         }},
        {"set one attribute of every run",
         [](NSMutableAttributedString& text) {
             text.enumerateAttribute(u"Number", [&text](const NSAny&, NSRange range, bool& /*stop*/) {
                 text.addAttribute(u"Colour", u"black", range);
             });
         }},
        {"merge all runs",
         [](NSMutableAttributedString& text) {
             text.enumerateAttributesInRange({0, text.length()}, {},
                                             [&text](const NSAttributes&, NSRange range, bool& /*stop*/) {
                                                 text.setAttributes({}, range);
                                             });
         }},
        {"replace every run", [](NSMutableAttributedString& text) { replaceRuns(text, false); }},
        {"replace every run, in reverse", [](NSMutableAttributedString& text) { replaceRuns(text, true); }},
        {"fix attributes",
         [](NSMutableAttributedString& text) {
             text.fixAttributesInRange({0, text.length()});
         }},
    };
}

/// The best of several runs, in nanoseconds.
double timeOf(const Operation& operation, const NSAttributedString& text)
{
    auto best = std::numeric_limits<double>::max();
    const auto repetitions = 5 + 1'000'000 / text.length();
    for (NSUInteger repetition = 0; repetition < repetitions; ++repetition) {
        NSMutableAttributedString changed(text);
        changed.beginEditing();
        changed.replaceCharactersInRange({0, 0}, u"");
        const auto start = std::chrono::steady_clock::now();
        operation.run(changed);
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

void printGrowth()
{
    fmt::print("| operation | ns a unit at {} | at {} | at {} | growth |\n| --- | --- | --- | --- | --- |\n",
               kLengths[0], kLengths[1], kLengths[2]);
    std::vector<NSAttributedString> texts;
    for (const auto length : kLengths)
        texts.push_back(styled(length));
    for (const auto& operation : operations()) {
        std::vector<double> perUnit;
        for (const auto& text : texts)
            perUnit.push_back(timeOf(operation, text) / static_cast<double>(text.length()));
        fmt::print("| {} | {:.1f} | {:.1f} | {:.1f} | {:.2f} |\n", operation.name, perUnit[0], perUnit[1],
                   perUnit[2], perUnit[2] / perUnit[0]);
    }
}

void printMemory()
{
    const auto before = ::mallinfo2().uordblks + ::mallinfo2().hblkhd;
    const auto text = styled(kLengths.back());
    const auto used = ::mallinfo2().uordblks + ::mallinfo2().hblkhd - before;
    const auto characterBytes = text.length() * sizeof(char16_t);
    fmt::print(
        "\nA text of {} units with {} runs takes {:.1f} MB: {:.0f} bytes a run beside its characters.\n",
        text.length(), text.runCount(), static_cast<double>(used) / 1e6,
        static_cast<double>(used - characterBytes) / static_cast<double>(text.runCount()));
}

} // namespace

int main()
{
    printGrowth();
    printMemory();
    return 0;
}
