#include "tests/rendering/SampleNotes.h"

#include "attachments/FileAttachments.h"
#include "colours/HighlightAttribute.h"
#include "colours/HighlightColours.h"
#include "markdown/MarkdownImport.h"
#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/NSBezierPath.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSTextAttachment.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/Dividers.h"
#include "styles/CVLNoteTextStyle.h"

#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string>

namespace {

NSFileWrapper::Ref file(std::u16string_view name, std::string bytes)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({std::move(bytes)});
    wrapper->setPreferredFilename(std::u16string(name));
    return wrapper;
}

/// The pictures and files that the notes' Markdown names.
NSFileWrapper::Ref fileNamed(std::u16string_view name)
{
    if (name == u"hills.png")
        return file(name, landscapePNG(900, 400));
    if (name == u"portrait.png")
        return file(name, landscapePNG(240, 320));
    if (name == u"broken.png")
        return file(name, "no picture at all");
    return file(name, "some bytes");
}

void highlight(NSMutableAttributedString& text, std::u16string_view passage, NSInteger type)
{
    const auto location = text.string().find(passage);
    if (location == std::u16string_view::npos)
        throw std::logic_error("a sample note lacks a passage");
    const NSRange range{location, passage.size()};
    const auto color = CVLExtensions::colorForHighlightColorType(type);
    text.addAttribute(CVLHighlightTextAttributeName, NSAny(static_cast<NSUInteger>(type)), range);
    text.addAttribute(NSBackgroundColorAttributeName, CVLExtensions::highlightBackgroundColor(color), range);
    text.addAttribute(NSForegroundColorAttributeName, CVLExtensions::highlightForegroundColor(color), range);
}

NSMutableAttributedString noteText(std::u16string_view markdown)
{
    NSMutableAttributedString text(attributedStringWithMarkdown(
        markdown, {.font = CVLNoteTextStyle::bodyNoteTextStyle()->font(), .fileForImage = fileNamed}));
    DynamicColors::convertTextListsToChecklistAttachments(text);
    DynamicColors::convertTextToDividers(text);
    DynamicColors::replaceFileAttachmentsInRange(text, {0, text.length()});
    return text;
}

std::unique_ptr<CVLNoteFile> noteWithText(const NSMutableAttributedString& text)
{
    auto note = std::make_unique<CVLNoteFile>();
    note->setNoteText(text.copy());
    return note;
}

constexpr std::u16string_view kGroceries = u"# Groceries\n\n"
                                           u"For Saturday, when *everybody* comes. **Seven people**, two of "
                                           u"whom eat no fish.\n\n"
                                           u"- [x] Bread\n"
                                           u"- [ ] Vegetables\n"
                                           u"    - [x] Leek\n"
                                           u"    - [ ] Carrots, the small ones that come with their leaves, "
                                           u"for a long line that has to be broken somewhere\n"
                                           u"        - [ ] Purple\n"
                                           u"- [ ] Butter\n\n"
                                           u"***\n\n"
                                           u"## Drinks\n\n"
                                           u"Lemonade is yellow, mint is green, berries are blue, rhubarb "
                                           u"is pink and grapes are purple.\n";

constexpr std::u16string_view kJourney
    = u"# Across the hills\n\n"
      u"Three days on foot, from hut to hut. The path is marked; the map is at "
      u"[the rangers' page](https://example.org/map).\n\n"
      u"![](hills.png)\n\n"
      u"## Stages\n\n"
      u"| Day | From and to | Hours |\n| --- | --- | ---: |\n| 1 | Station to the lower hut | 4 |\n"
      u"| 2 | Over the pass to the upper hut, the longest stage of the three | 8½ |\n"
      u"| 3 | Down to the lake | 5 |\n\n"
      u"## What to take\n\n"
      u"1. Papers\n    1. Passport\n    2. Hut card\n2. Clothes\n    - Rain coat\n    - Two shirts\n"
      u"        - One of wool\n3. `head -n 1 torch` and a ~~tent~~ blanket\n\n"
      u"> Nobody ever regretted having turned back. \n\n"
      u"```\nfor stage in 1 2 3; do\n    walk --slowly \"$stage\"\ndone\n```\n\n"
      u"![](timetable.ods)\n";

constexpr std::u16string_view kPictures
    = u"# Files\n\n"
      u"A picture ![](portrait.png) stands in its line, files as their icons: ![](Report.docx) "
      u"![](song.mp3) ![](a-very-long-name-of-an-archive-that-nobody-would-type-again.zip) and one that "
      u"cannot be read ![](broken.png).\n";

} // namespace

std::string landscapePNG(double width, double height)
{
    const auto hill = [width, height](double base, double swing, double phase) {
        NSBezierPath path;
        path.moveToPoint({0, 0});
        constexpr int kSteps = 60;
        for (int step = 0; step <= kSteps; ++step) {
            const auto share = static_cast<double>(step) / kSteps;
            const auto y = base + swing * std::sin(share * 2 * std::numbers::pi + phase);
            path.lineToPoint({share * width, y * height});
        }
        path.lineToPoint({width, 0});
        path.closePath();
        return path;
    };
    const DrawingSurface surface{{width, height}};
    const auto picture = surface.PNGRepresentation([&](NSGraphicsContext& context) {
        context.fillRect({{}, {width, height}}, *NSColor::colorWithRed(0.75, 0.88, 0.96, 1));
        context.fillOvalInRect({{width * 0.68, height * 0.6}, {height * 0.25, height * 0.25}},
                               *NSColor::colorWithRed(1, 0.85, 0.4, 1));
        context.fillPath(hill(0.45, 0.1, 0.5), *NSColor::colorWithRed(0.55, 0.7, 0.6, 1));
        context.fillPath(hill(0.3, 0.12, 2.6), *NSColor::colorWithRed(0.4, 0.6, 0.45, 1));
        context.fillPath(hill(0.14, 0.07, 4.5), *NSColor::colorWithRed(0.25, 0.45, 0.35, 1));
    });
    return picture ? picture->bytes : throw std::runtime_error("no picture was drawn");
}

std::unique_ptr<CVLNoteFile> groceriesNote()
{
    auto text = noteText(kGroceries);
    highlight(text, u"yellow", 1);
    highlight(text, u"green", 2);
    highlight(text, u"blue", 3);
    highlight(text, u"pink", 4);
    highlight(text, u"purple.", 5);
    return noteWithText(text);
}

std::unique_ptr<CVLNoteFile> journeyNote()
{
    return noteWithText(noteText(kJourney));
}

std::unique_ptr<CVLNoteFile> picturesNote()
{
    auto note = noteWithText(noteText(kPictures));
    note->setBackgroundColor(NSColor::colorWithRed(1, 0.96, 0.8, 1));
    note->setShowSmallImages(true);
    return note;
}

std::unique_ptr<CVLNoteFile> longNote()
{
    std::u16string markdown = u"# A long walk\n\n";
    for (int day = 1; day <= 12; ++day) {
        markdown += u"## A day\n\nThe path leads along the river, past the mill, and up through the wood to "
                    u"where the view opens. There is a bench, and on most days somebody sits on it who has "
                    u"been there for longer than the trees, and who will tell you so.\n\n";
        markdown += day % 4 == 0 ? u"![](hills.png)\n\n" : u"- Bread\n- Cheese\n- Apples\n\n";
    }
    return noteWithText(noteText(markdown));
}
