#include "richtext/ChecklistMarkdown.h"

#include "platform/foundation/NSString.h"
#include "richtext/ChecklistTextLists.h"
#include "strings/MarkdownChecklists.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

#include <random>

using namespace DynamicColors;

namespace {

NSMutableAttributedString markdown(const NSAttributedString& text)
{
    NSMutableAttributedString converted(text);
    convertChecklistAttachmentsToMarkdownSyntax(converted);
    EXPECT_TRUE(attachmentsAreInPlace(converted));
    return converted;
}

class ChecklistMarkdown : public StyleTest { };

} // namespace

TEST_F(ChecklistMarkdown, HasABracketPairForEachBox)
{
    EXPECT_EQ(markdown(checklistText({{false, 0, u"Milk"}})).string(), u"- [ ] Milk\n");
    EXPECT_EQ(markdown(checklistText({{true, 0, u"Milk"}})).string(), u"- [x] Milk\n");
}

TEST_F(ChecklistMarkdown, HasFourSpacesForEachLevel)
{
    EXPECT_EQ(markdown(checklistText({{true, 2, u"a"}, {false, 1, u"b"}})).string(),
              u"        - [x] a\n    - [ ] b\n");
    EXPECT_EQ(markdown(checklistText({{false, 7, u""}})).string(), std::u16string(28, u' ') + u"- [ ] \n");
}

TEST_F(ChecklistMarkdown, HasTheDefaultParagraphStyleOnTheWholeLine)
{
    NSMutableParagraphStyle other;
    other.setHeadIndent(5);
    auto text = checklistText({{true, 2, u"a"}});
    text.appendAttributedString(NoteText().add(u"b", other).text());
    const auto converted = markdown(text);
    ASSERT_EQ(converted.string(), u"        - [x] a\nb");
    for (NSUInteger index = 0; index < 16; ++index)
        EXPECT_TRUE(styleAt(converted, index)->isEqual(*NSParagraphStyle::defaultParagraphStyle())) << index;
    EXPECT_EQ(styleAt(converted, 16)->headIndent(), 5);
}

TEST_F(ChecklistMarkdown, HasTheDefaultParagraphStyleOnEveryLine)
{
    const auto text = markdown(checklistText({{true, 0, u"a"}, {false, 1, u"b"}, {true, 2, u"c"}}));
    for (NSUInteger index = 0; index < text.length(); ++index)
        EXPECT_TRUE(styleAt(text, index)->isEqual(*NSParagraphStyle::defaultParagraphStyle())) << index;
}

TEST_F(ChecklistMarkdown, StylesLinesWithTheirLineEndsWhateverTheyAre)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(5);
    for (const std::u16string lineEnd : {u"\r\n", u"\u2028", u"\u2029"}) {
        NSMutableAttributedString text(NoteText()
                                           .addAttachment(makeBox(true))
                                           .add(u"a" + lineEnd + u"b" + lineEnd)
                                           .addAttachment(makeBox(false))
                                           .add(u"c" + lineEnd)
                                           .text());
        text.addAttribute(NSParagraphStyleAttributeName, style.copy(), {0, text.length()});
        const auto converted = markdown(text);
        ASSERT_EQ(converted.string(), u"- [x] a" + lineEnd + u"b" + lineEnd + u"- [ ] c" + lineEnd);
        const auto plainStart = 7 + lineEnd.size();
        const auto plainEnd = plainStart + 1 + lineEnd.size();
        for (NSUInteger index = 0; index < converted.length(); ++index) {
            const bool isPlainLine = index >= plainStart && index < plainEnd;
            EXPECT_EQ(styleAt(converted, index)->headIndent(), isPlainLine ? 5 : 0) << index;
        }
    }
}

TEST_F(ChecklistMarkdown, KeepsTheOtherAttributes)
{
    const auto text
        = markdown(NoteText().addAttachment(makeBox(false), withFont(u"Menlo-Regular", 12)).add(u"a").text());
    EXPECT_TRUE(fontAt(text, 0));
    EXPECT_TRUE(fontAt(text, 5));
    EXPECT_FALSE(fontAt(text, 6));
    EXPECT_FALSE(text.attribute(NSAttachmentAttributeName, 0));
}

TEST_F(ChecklistMarkdown, StylesALineWithSeveralBoxes)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(20);
    const NSAttributes attributes{{key(NSParagraphStyleAttributeName), style.copy()}};
    const auto text = markdown(NoteText()
                                   .add(u"a", attributes)
                                   .addAttachment(makeBox(true), attributes)
                                   .addAttachment(makeBox(false), attributes)
                                   .add(u"b\n", attributes)
                                   .text());
    EXPECT_EQ(text.string(), u"a- [x] - [ ] b\n");
    for (NSUInteger index = 0; index < text.length(); ++index)
        EXPECT_EQ(styleAt(text, index)->headIndent(), 0);
}

TEST_F(ChecklistMarkdown, LeavesOtherTextAndOtherAttachmentsAlone)
{
    const auto text = NoteText().add(u"a\n").addAttachment(makeAttachment(u"a.png")).add(u"\n").text();
    EXPECT_EQ(markdown(text), text);
    EXPECT_EQ(markdown(NSAttributedString()), NSAttributedString());
}

TEST_F(ChecklistMarkdown, IsReadBackItemForItem)
{
    std::mt19937 random(3);
    for (int round = 0; round < 100; ++round) {
        std::vector<ChecklistItem> items;
        for (auto left = random() % 10; left > 0; --left)
            items.push_back({random() % 2 == 0, random() % 6, u"item " + std::u16string(left, u'x')});
        const auto converted = markdown(checklistText(items));
        std::vector<ChecklistItem> read;
        enumerateLines(converted.string(), [&read](std::u16string_view line) {
            ChecklistItem item;
            EXPECT_TRUE(TSExtensions::getMarkdownChecklistValue(line, &item.isOn, &item.level));
            item.characters = line.substr(item.level * 4 + 6);
            read.push_back(item);
            return true;
        });
        ASSERT_EQ(read, items);
    }
}

TEST_F(ChecklistMarkdown, ListsItsItemsAsTheNoteDoes)
{
    const auto converted = markdown(checklistText({{true, 0, u"a"}, {false, 1, u"b"}, {true, 2, u"c"}}));
    EXPECT_EQ(CVLMarkdown::completedChecklistItems(converted.string()),
              (std::vector<std::u16string>{u"a", u"c"}));
    EXPECT_EQ(CVLMarkdown::outstandingChecklistItems(converted.string()),
              (std::vector<std::u16string>{u"b"}));
}

TEST_F(ChecklistMarkdown, IsTheSameThroughTextLists)
{
    const auto text = checklistText({{true, 0, u"a"}, {false, 1, u"b"}, {true, 2, u"c"}, {false, 0, u"d"}});
    NSMutableAttributedString there(text);
    convertChecklistAttachmentsToTextLists(there);
    convertTextListsToChecklistAttachments(there);
    EXPECT_EQ(markdown(there).string(), markdown(text).string());
}
