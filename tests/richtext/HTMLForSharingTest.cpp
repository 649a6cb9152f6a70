#include "richtext/HTMLForSharing.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/NoteText.h"

#include <gmock/gmock.h>

using namespace DynamicColors;
using testing::HasSubstr;
using testing::Not;

namespace {

std::string shared(const NSAttributedString& text)
{
    return UTF8FromUTF16(htmlStringForSharingToMail(text));
}

std::string written(const NSAttributedString& text)
{
    return NSAttributedStringDocumentFormats::HTMLFromRange(text, {0, text.length()})->bytes;
}

} // namespace

TEST(HTMLForSharing, HoldsItsImages)
{
    const auto text
        = NoteText().add(u"See ").addAttachment(makeAttachment(u"a b.png", "abc")).add(u"!").text();
    ASSERT_THAT(written(text), HasSubstr(R"(<img src="file:///a%20b.png" alt="a b.png">)"));
    EXPECT_THAT(shared(text),
                HasSubstr(R"(<img style="max-width: 100%" src="data:image/png;base64,YWJj" alt="a b.png">)"));
    EXPECT_THAT(shared(text), Not(HasSubstr("file:///")));
}

TEST(HTMLForSharing, HoldsImagesInTheTypeTheyAreOf)
{
    const auto text = NoteText().addAttachment(makeAttachment(u"photo.jpg", "abc")).text();
    EXPECT_THAT(shared(text), HasSubstr("data:image/jpeg;base64,YWJj"));
}

TEST(HTMLForSharing, LeavesOtherFilesOut)
{
    const auto text = NoteText()
                          .add(u"before ")
                          .addAttachment(makeAttachment(u"report.pdf"))
                          .addAttachment(makeAttachment(u"all.zip"))
                          .add(u" behind")
                          .text();
    ASSERT_THAT(written(text), HasSubstr(R"(<img src="file:///report.pdf" alt="report.pdf">)"));
    ASSERT_THAT(written(text), HasSubstr(R"(<object data="file:///all.zip">all.zip</object>)"));
    EXPECT_THAT(shared(text), Not(HasSubstr("report.pdf")));
    EXPECT_THAT(shared(text), Not(HasSubstr("all.zip")));
    EXPECT_THAT(shared(text), HasSubstr("before "));
    EXPECT_THAT(shared(text), HasSubstr(" behind"));
}

TEST(HTMLForSharing, TakesTheLastOfSeveralFilesOfOneNameForAll)
{
    const auto text = NoteText()
                          .addAttachment(makeAttachment(u"a.png", "abc"))
                          .add(u" ")
                          .addAttachment(makeAttachment(u"a.png", "def"))
                          .text();
    const auto html = shared(text);
    const auto first = html.find("base64,ZGVm");
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(html.find("base64,ZGVm", first + 1), std::string::npos);
    EXPECT_THAT(html, Not(HasSubstr("YWJj")));
}

TEST(HTMLForSharing, IsTheWritersPageForATextWithoutAttachments)
{
    const auto text = NoteText().add(u"<img src=\"file:///a.png\" alt=\"a.png\"> & more\n").text();
    EXPECT_EQ(shared(text), written(text));
    EXPECT_EQ(shared(NSAttributedString()), written(NSAttributedString()));
}

TEST(HTMLForSharing, LeavesFilesWithoutANameOnDiskAsTheyAre)
{
    const auto file = makeFile(u"a.png");
    file->setFilename(std::nullopt);
    const auto text = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(file)).text();
    EXPECT_EQ(shared(text), written(text));
    file->setFilename(u"");
    EXPECT_EQ(shared(text), written(text));
}

TEST(HTMLForSharing, KnowsNamesInEveryScript)
{
    const auto text = NoteText().addAttachment(makeAttachment(u"Übung 1+2 \u65E5.png", "abc")).text();
    EXPECT_THAT(shared(text), HasSubstr("base64,YWJj\" alt=\"Übung 1+2 \u65E5.png\">"));
}
