#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

using Lists = NSParagraphStyle::TextLists;

NSTextList::Ref list(std::u16string_view format, NSInteger start = 1)
{
    return std::make_shared<const NSTextList>(format, 0, start);
}

NSAttributedString item(std::u16string_view text, Lists lists)
{
    NSMutableParagraphStyle style;
    style.setTabStops({});
    style.setTextLists(std::move(lists));
    return NSAttributedString(std::u16string(text),
                              {{std::u16string(NSParagraphStyleAttributeName), style.copy()}});
}

std::string written(std::initializer_list<NSAttributedString> paragraphs)
{
    NSMutableAttributedString text;
    for (const auto& paragraph : paragraphs)
        text.appendAttributedString(paragraph);
    return NSAttributedStringDocumentFormats::RTFFromRange(text, {0, text.length()})->bytes;
}

} // namespace

TEST(RTFListWriting, WritesSignsAsThePlatformDoes)
{
    EXPECT_THAT(
        written({item(u"\t\u2022\titem", {list(NSTextListMarkerDisc)})}),
        HasSubstr("{\\*\\listtable{\\list\\listtemplateid1\\listhybrid{\\listlevel\\levelnfc23\\levelnfcn23"
                  "\\leveljc0\\leveljcn0\\levelfollow0\\levelstartat1\\levelspace360\\levelindent0"
                  "{\\*\\levelmarker \\{disc\\}}{\\leveltext\\leveltemplateid1\\'01\\uc0\\u8226 ;}"
                  "{\\levelnumbers;}\\fi-360\\li720\\lin720 }{\\listname ;}\\listid1}}\n"
                  "{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0\\ls1}}\n"));
}

TEST(RTFListWriting, WritesSignsOutsideTheCodePageAsUnicode)
{
    EXPECT_THAT(
        written({item(u"x", {list(NSTextListMarkerCheck)})}),
        HasSubstr("{\\*\\levelmarker \\{check\\}}{\\leveltext\\leveltemplateid1\\'01\\uc0\\u10003 ;}"));
}

TEST(RTFListWriting, WritesNumbersWithWhatStandsAroundThem)
{
    EXPECT_THAT(
        written({item(u"x", {list(u"{decimal}.", 5)})}),
        HasSubstr("\\levelnfc0\\levelnfcn0\\leveljc0\\leveljcn0\\levelfollow0\\levelstartat5\\levelspace360"
                  "\\levelindent0{\\*\\levelmarker \\{decimal\\}.}{\\leveltext\\leveltemplateid1"
                  "\\'02\\'00.;}{\\levelnumbers\\'01;}"));
    EXPECT_THAT(written({item(u"x", {list(u"({upper-roman})")})}), HasSubstr("\\levelnfc1\\levelnfcn1"));
    EXPECT_THAT(written({item(u"x", {list(u"({upper-roman})")})}),
                HasSubstr("{\\*\\levelmarker (\\{upper-roman\\})}{\\leveltext\\leveltemplateid1"
                          "\\'03(\\'00);}{\\levelnumbers\\'02;}"));
}

TEST(RTFListWriting, PutsTheMarkerIntoAGroupOfItsOwn)
{
    EXPECT_THAT(written({item(u"\t\u2713\titem", {list(NSTextListMarkerCheck)})}),
                EndsWith("\\pard\\pardirnatural\\partightenfactor0\n\\ls1\\ilvl0\n\\f0\\fs24 \\cf0 "
                         "{\\listtext\t\\uc0\\u10003 \t}item}"));
}

TEST(RTFListWriting, LeavesTextThatIsNoMarkerInTheParagraph)
{
    for (const auto* text :
         {u"item", u"\titem", u"\ttwo words\titem", u"\tmuch longer than a marker is\titem"})
        EXPECT_THAT(written({item(text, {list(NSTextListMarkerDisc)})}), Not(HasSubstr("listtext")));
}

TEST(RTFListWriting, KeepsTheFormatOfAMarkerToItself)
{
    NSMutableAttributedString text(item(u"\t1.\titem", {list(u"{decimal}.")}));
    text.addAttribute(NSUnderlineStyleAttributeName, 1, {1, 2});
    EXPECT_THAT(written({text}), EndsWith("\\cf0 {\\listtext\t\\ul \\ulc0 1.\\ulnone \t}item}"));
}

TEST(RTFListWriting, CountsLevelsWithinOneList)
{
    const auto outer = list(NSTextListMarkerDisc);
    const auto inner = list(NSTextListMarkerHyphen);
    const auto document = written({item(u"a\n", {outer}), item(u"b\n", {outer, inner}), item(u"c", {outer})});
    EXPECT_THAT(
        document,
        HasSubstr("\\leveltemplateid2\\'01\\uc0\\u8259 ;}{\\levelnumbers;}\\fi-360\\li1440\\lin1440 }"));
    EXPECT_THAT(document, HasSubstr("\\ls1\\ilvl0\n\\f0\\fs24 \\cf0 a\\\n"));
    EXPECT_THAT(document, HasSubstr("\\ls1\\ilvl1\\cf0 b\\\n"));
    EXPECT_THAT(document, EndsWith("\\ls1\\ilvl0\\cf0 c}"));
    EXPECT_THAT(document, Not(HasSubstr("\\ls2")));
}

TEST(RTFListWriting, WritesListsThatLookAlikeApart)
{
    const auto document
        = written({item(u"a\n", {list(NSTextListMarkerDisc)}), item(u"b", {list(NSTextListMarkerDisc)})});
    EXPECT_THAT(document, HasSubstr("\\listid1}\n{\\list\\listtemplateid2"));
    EXPECT_THAT(document, HasSubstr("\\leveltemplateid101"));
    EXPECT_THAT(document, EndsWith("\\ls2\\ilvl0\\cf0 b}"));
}

TEST(RTFListWriting, GivesASecondInnerListAListOfItsOwn)
{
    const auto outer = list(u"{decimal}.");
    const auto document = written({item(u"a\n", {outer, list(NSTextListMarkerDisc)}),
                                   item(u"b\n", {outer, list(NSTextListMarkerDisc)}), item(u"c", {outer})});
    EXPECT_THAT(document, HasSubstr("\\ls1\\ilvl1\n\\f0\\fs24 \\cf0 a"));
    EXPECT_THAT(document, HasSubstr("\\ls2\\ilvl1\\cf0 b"));
    EXPECT_THAT(document, EndsWith("\\ls1\\ilvl0\\cf0 c}"));
}

TEST(RTFListWriting, CountsWhatIsDeeperThanNineLevelsAsTheNinth)
{
    Lists lists;
    for (int depth = 0; depth < 12; ++depth)
        lists.push_back(list(NSTextListMarkerDisc));
    const auto document = written({item(u"a", lists)});
    EXPECT_THAT(document, HasSubstr("\\ls1\\ilvl8"));
    EXPECT_THAT(document, Not(HasSubstr("\\leveltemplateid10\\")));
}
