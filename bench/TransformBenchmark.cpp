// How the transforms of notes grow: texts of 1,000, 10,000 and 100,000 items, dividers, files or lines, and
// every transform over the whole text. Linear is a growth of 1.

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "paragraphs/ParagraphStyles.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSTextTable.h"
#include "richtext/AttachmentFiles.h"
#include "richtext/AttachmentNames.h"
#include "richtext/ChecklistItems.h"
#include "richtext/ChecklistMarkdown.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/Dividers.h"
#include "richtext/HTMLForSharing.h"
#include "richtext/ListRecognition.h"
#include "richtext/TextListMarkers.h"
#include "richtext/TrailingTables.h"
#include "richtext/WebPageCleanup.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace DynamicColors;

namespace {

constexpr std::array<NSUInteger, 3> kCounts{1'000, 10'000, 100'000};
constexpr int kRepetitions = 5;

std::u16string numeral(NSUInteger number)
{
    const auto digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

NSAttributes withStyle(const NSParagraphStyle::Ref& style)
{
    return {{std::u16string(NSParagraphStyleAttributeName), style},
            {std::u16string(NSFontAttributeName), NSFont::fontWithName(u"HelveticaNeue", 12)}};
}

std::shared_ptr<CVLChecklistTextAttachment> makeBox(NSUInteger number)
{
    auto box = CVLChecklistTextAttachment::init();
    box->setOn(number % 3 == 0);
    box->setIndentationLevel(number / 2 % 4);
    return box;
}

/// The text that `add` makes of the numbers from 0.
NSMutableAttributedString made(NSUInteger count,
                               const std::function<void(NSMutableAttributedString&, NSUInteger)>& add)
{
    NSMutableAttributedString text;
    for (NSUInteger number = 0; number < count; ++number)
        add(text, number);
    return text;
}

NSMutableAttributedString checklist(NSUInteger count, std::u16string_view lineEnd)
{
    return made(count, [lineEnd](NSMutableAttributedString& text, NSUInteger number) {
        const auto box = makeBox(number);
        const auto attributes = withStyle(box->checklistParagraphStyle());
        text.appendAttributedString(NSAttributedString::attributedStringWithAttachment(box, attributes));
        text.appendAttributedString(
            NSAttributedString(u"item " + numeral(number) + std::u16string(lineEnd), attributes));
    });
}

NSMutableAttributedString checklistLines(NSUInteger count)
{
    return checklist(count, u"\n");
}

/// All boxes on one line.
NSMutableAttributedString checklistLine(NSUInteger count)
{
    return checklist(count, u" ");
}

NSMutableAttributedString checkLists(NSUInteger count)
{
    auto text = checklistLines(count);
    convertChecklistAttachmentsToTextLists(text);
    return text;
}

NSMutableAttributedString dividers(NSUInteger count)
{
    return made(count, [](NSMutableAttributedString& text, NSUInteger) {
        text.appendAttributedString(CVLDividerTextAttachment::init()->attributedString());
        text.appendAttributedString(NSAttributedString(u"between"));
    });
}

NSMutableAttributedString asterisks(NSUInteger count)
{
    return made(count, [](NSMutableAttributedString& text, NSUInteger) {
        text.appendAttributedString(NSAttributedString(u"***\nbetween\n"));
    });
}

NSMutableAttributedString files(NSUInteger count)
{
    return made(count, [](NSMutableAttributedString& text, NSUInteger number) {
        static const std::array<std::u16string_view, 3> extensions{u".png", u".pdf", u".zip"};
        const auto name = u"file " + numeral(number) + std::u16string(extensions[number % extensions.size()]);
        const auto file = NSFileWrapper::initRegularFileWithContents({std::string(64, 'x')});
        file->setFilename(name);
        file->setPreferredFilename(name);
        text.appendAttributedString(
            NSAttributedString::attributedStringWithAttachment(NSTextAttachment::initWithFileWrapper(file)));
        text.appendAttributedString(NSAttributedString(u"text\n"));
    });
}

NSMutableAttributedString listLines(NSUInteger count)
{
    const auto attributes = withStyle(CVLExtensions::listParagraphStyle().copy());
    return made(count, [&attributes](NSMutableAttributedString& text, NSUInteger number) {
        const auto marker = number % 2 == 0 ? std::u16string(u"\u2022") : numeral(1 + number % 999) + u".";
        text.appendAttributedString(NSAttributedString(u"\t" + marker + u"\titem\n", attributes));
    });
}

NSMutableAttributedString listsWithoutMarkers(NSUInteger count)
{
    return made(count, [](NSMutableAttributedString& text, NSUInteger number) {
        auto style = CVLExtensions::listParagraphStyle();
        style.setTextLists({std::make_shared<const NSTextList>(number % 2 == 0 ? NSTextListMarkerDisc
                                                                               : NSTextListMarkerDecimal)});
        text.appendAttributedString(NSAttributedString(u"item\n", withStyle(style.copy())));
    });
}

NSMutableAttributedString webPage(NSUInteger count)
{
    NSMutableParagraphStyle style;
    style.setParagraphSpacing(16);
    const std::u16string fontName(NSFontAttributeName);
    const std::u16string colorName(NSForegroundColorAttributeName);
    const auto plain = withStyle(style.copy());
    auto strong = plain;
    strong.insert_or_assign(fontName, NSFont::fontWithName(u"Times-Bold", 16));
    auto linked = plain;
    linked.insert_or_assign(fontName, NSFont::fontWithName(u"Georgia-Italic", 13));
    linked.insert_or_assign(colorName, NSColor::blueColor());
    return made(count, [&](NSMutableAttributedString& text, NSUInteger) {
        text.appendAttributedString(NSAttributedString(u"A paragraph with ", plain));
        text.appendAttributedString(NSAttributedString(u"strong words", strong));
        text.appendAttributedString(NSAttributedString(u" and links", linked));
        text.appendAttributedString(NSAttributedString(u".\n", plain));
    });
}

NSMutableAttributedString table(NSUInteger count)
{
    const auto whole = std::make_shared<const NSTextTable>();
    return made(count, [&whole](NSMutableAttributedString& text, NSUInteger number) {
        NSMutableParagraphStyle style;
        style.setTextBlocks(
            {std::make_shared<const NSTextTableBlock>(whole, static_cast<NSInteger>(number), 1, 0, 1)});
        text.appendAttributedString(NSAttributedString(u"cell\n", withStyle(style.copy())));
    });
}

/// What a transform found; nothing means that it did not do its work.
void keep(std::size_t found)
{
    if (found == 0)
        throw std::logic_error("nothing was found");
}

struct Transform {
    std::string name;
    NSMutableAttributedString (*text)(NSUInteger count);
    std::function<void(NSMutableAttributedString&)> run;
};

void addMarkers(NSMutableAttributedString& text)
{
    NSTextList::setIncludesTextListMarkers(false);
    addTextMarkersIfNecessary(text);
    NSTextList::setIncludesTextListMarkers(true);
}

void cleanUp(NSMutableAttributedString& text)
{
    cleanupTextFromWebPageInRange(text, {0, text.length()}, NSFont::fontWithName(u"HelveticaNeue", 12), true,
                                  true, true);
}

std::vector<Transform> transforms()
{
    using Text = NSMutableAttributedString;
    return {
        {"boxes to text lists", checklistLines, convertChecklistAttachmentsToTextLists},
        {"boxes on one line to text lists", checklistLine, convertChecklistAttachmentsToTextLists},
        {"text lists to boxes", checkLists, convertTextListsToChecklistAttachments},
        {"boxes to Markdown", checklistLines, convertChecklistAttachmentsToMarkdownSyntax},
        {"boxes on one line to Markdown", checklistLine, convertChecklistAttachmentsToMarkdownSyntax},
        {"completed items", checklistLines, [](Text& text) { keep(completedChecklistItems(text).size()); }},
        {"outstanding items", checklistLines,
         [](Text& text) { keep(outstandingChecklistItems(text).size()); }},
        {"dividers to text", dividers, convertDividersToText},
        {"text to dividers", asterisks, convertTextToDividers},
        {"ask for files where there are none", checklistLines,
         [](Text& text) { keep(containsFileAttachments(text) ? 0 : 1); }},
        {"files", files, [](Text& text) { keep(fileAttachments(text).size()); }},
        {"length of file names", files, fixLengthOfAttachmentFilenames},
        {"without attachments", files,
         [](Text& text) { keep(attributedStringWithoutAttachments(text).length()); }},
        {"names of attachments", files,
         [](Text& text) { keep(attributedStringByReplacingAttachmentsWithNames(text).length()); }},
        {"name of the note", files, [](Text& text) { keep(generateName(text).size()); }},
        {"HTML for messages", files, [](Text& text) { keep(htmlStringForSharingToMail(text).size()); }},
        {"recognise lists", listLines, checkForTextListsAndConvertIfNecessary},
        {"write list markers", listsWithoutMarkers, addMarkers},
        {"line behind a table", table, fixTrailingTables},
        {"clean a web page up", webPage, cleanUp},
    };
}

std::vector<NSMutableAttributedString> copiesOf(const std::vector<NSMutableAttributedString>& texts)
{
    auto copies = texts;
    // A copy is made with the first change; now, and not in the time that is taken.
    for (auto& copy : copies)
        copy.addAttribute(u"Copied", true, {0, 1});
    return copies;
}

/// The best of several runs over as many texts as have all items together, in nanoseconds an item. Short
/// texts so come from as far away in memory as long ones.
double timeOf(const Transform& transform, NSUInteger count)
{
    std::vector<NSMutableAttributedString> texts;
    for (NSUInteger items = 0; items < kCounts.back(); items += count)
        texts.push_back(transform.text(count));
    auto best = std::numeric_limits<double>::max();
    for (int repetition = 0; repetition < kRepetitions; ++repetition) {
        auto changed = copiesOf(texts);
        const auto start = std::chrono::steady_clock::now();
        for (auto& text : changed)
            transform.run(text);
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best / static_cast<double>(kCounts.back());
}

} // namespace

/// With an argument, only the transforms with that in their names.
int main(int argumentCount, char** arguments)
{
    const std::string wanted = argumentCount > 1 ? arguments[1] : "";
    fmt::print("| transform | ns an item at {} | at {} | at {} | greatest growth |\n"
               "| --- | --- | --- | --- | --- |\n",
               kCounts[0], kCounts[1], kCounts[2]);
    for (const auto& transform : transforms()) {
        if (transform.name.find(wanted) == std::string::npos)
            continue;
        std::array<double, kCounts.size()> times{};
        std::transform(kCounts.begin(), kCounts.end(), times.begin(),
                       [&transform](NSUInteger count) { return timeOf(transform, count); });
        fmt::print("| {} | {:.0f} | {:.0f} | {:.0f} | {:.2f} |\n", transform.name, times[0], times[1],
                   times[2], std::max(times[1] / times[0], times[2] / times[1]));
    }
    return 0;
}
