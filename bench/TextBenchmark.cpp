// How the cost of rich text grows: texts of 10,000, 100,000 and 1,000,000 units with a run every 20 units,
// and every operation over the whole text. Linear is a growth of 1.

#include "colours/HighlightAttribute.h"
#include "paragraphs/ParagraphStyles.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/TextClasses.h"
#include "richtext/DynamicColours.h"
#include "richtext/Highlights.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <limits>
#include <malloc.h>
#include <memory>
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

/// What a note's runs look like: a few fonts, colours and paragraph styles in every combination, highlights,
/// and a number that makes neighbours differ.
NSAttributes attributesOf(NSUInteger number)
{
    static const std::array fonts{NSFont::fontWithName(u"HelveticaNeue", 12),
                                  NSFont::fontWithName(u"HelveticaNeue-Bold", 17),
                                  NSFont::fontWithName(u"Menlo-Regular", 12)};
    static const std::array colours{NSColor::blackColor(), NSColor::textColor(),
                                    NSColor::colorWithRed(0.8, 0.1, 0.2, 1)};
    static const std::array styles{NSParagraphStyle::defaultParagraphStyle(),
                                   CVLExtensions::listParagraphStyle().copy()};
    NSAttributes attributes{
        {std::u16string(NSFontAttributeName), fonts[number % fonts.size()]},
        {std::u16string(NSForegroundColorAttributeName), colours[number / 2 % colours.size()]},
        {std::u16string(NSParagraphStyleAttributeName), styles[number / 4 % styles.size()]},
        {u"Parity", number % 2},
    };
    if (number % 5 == 0)
        attributes.emplace(CVLHighlightTextAttributeName, 1 + number % 7);
    if (number % 11 == 0) {
        attributes.emplace(NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault);
        attributes.emplace(NSTextHighlightColorSchemeAttributeName, NSTextHighlightColorSchemeMint);
        attributes.emplace(NSBackgroundColorAttributeName, colours.back());
    }
    return attributes;
}

NSAttributedString styled(NSUInteger length)
{
    NSMutableAttributedString text(characters(length));
    NSUInteger number = 0;
    for (NSUInteger start = 0; start < length; start += kRunLength, ++number)
        text.setAttributes(attributesOf(number), {start, kRunLength});
    return text;
}

std::string archived(const NSAttributedString& text)
{
    const auto object
        = std::make_shared<const NSAttributedStringObject>(text, NSAttributedStringObject::Form::Mutable);
    auto data = NSKeyedArchiver::archivedDataWithRootObject(object, false);
    if (!data)
        throw std::logic_error("the text was not archived");
    return std::move(data->bytes);
}

NSAttributedString unarchived(std::string_view archive)
{
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(archive, textClasses());
    unarchiver->setRequiresSecureCoding(false);
    const auto text = unarchiver->decodeTopLevelObjectOfClasses({}, NSKeyedArchiveRootObjectKey)
                          .object<NSAttributedStringObject>();
    if (!text)
        throw std::logic_error("the text was not unarchived");
    return text->text();
}

/// What an operation found; nothing means that it did not do its work.
void keep(std::size_t found)
{
    if (found == 0)
        throw std::logic_error("nothing was found");
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
             text.enumerateAttribute(NSFontAttributeName,
                                     [&sum](const NSAny& value, NSRange range, bool& /*stop*/) {
                                         sum += value ? range.length : 0;
                                     });
             keep(sum);
         }},
        {"set one attribute of every run",
         [](NSMutableAttributedString& text) {
             text.enumerateAttribute(u"Parity", [&text](const NSAny&, NSRange range, bool& /*stop*/) {
                 text.addAttribute(NSKernAttributeName, 0.5, range);
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
        {"to dynamic colours",
         [](NSMutableAttributedString& text) { DynamicColors::convertToDynamicColors(text); }},
        {"from dynamic colours",
         [](NSMutableAttributedString& text) { DynamicColors::convertFromDynamicColors(text); }},
        {"clean colours up",
         [](NSMutableAttributedString& text) {
             DynamicColors::cleanupTextColorsInRange(text, {0, text.length()});
         }},
        {"platform highlights to the note's",
         [](NSMutableAttributedString& text) {
             DynamicColors::convertNSTextHighlightsToCorvelHighlights(text);
         }},
        {"the note's highlights to the platform's",
         [](NSMutableAttributedString& text) {
             DynamicColors::convertCorvelHighlightsToNSTextHighlights(text);
         }},
        {"highlighted passages",
         [](NSMutableAttributedString& text) { keep(DynamicColors::highlightedStrings(text).size()); }},
        {"passages on a background",
         [](NSMutableAttributedString& text) {
             keep(DynamicColors::stringsWithBackgroundColor(text).size());
         }},
        {"archive", [](NSMutableAttributedString& text) { keep(archived(text).size()); }},
        {"archive and unarchive",
         [](NSMutableAttributedString& text) { keep(unarchived(archived(text)).runCount()); }},
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
