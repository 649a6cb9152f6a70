#include "platform/media/OpenDocumentReader.h"

#include "tests/support/ReadWith.h"
#include "tests/support/ZipBytes.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::string document(const std::string& body)
{
    return "<office:document xmlns:office='o' xmlns:text='t' xmlns:table='b' xmlns:draw='d' xmlns:dc='c' "
           "xmlns:style='s' "
           "xmlns:meta='m'>"
        + body + "</office:document>";
}

std::string flatText(const std::string& body)
{
    return readWith(readOpenDocument, document(body)).text;
}

} // namespace

TEST(OpenDocumentReader, KeepsWhatIsSeen)
{
    struct Case {
        std::string_view xml;
        std::string_view text;
    };

    const std::vector<Case> cases{
        {"<text:h>Head</text:h>\n<text:p>one <text:span>two</text:span></text:p>", "Head\none two\n"},
        {"<text:p>a<text:tab/>b<text:s text:c='3'/>c<text:line-break/>d</text:p>", "a b c\nd\n"},
        {"<text:p>word<text:note><text:note-citation>1</text:note-citation><text:note-body><text:p>note</"
         "text:p>"
         "</text:note-body></text:note> goes on</text:p>",
         "word\nnote\n goes on\n"},
        {"<text:p>a<office:annotation><dc:creator>Ann</dc:creator><text:p>remark</text:p></"
         "office:annotation>b</text:p>",
         "a\nremark\nb\n"},
        {"<text:tracked-changes><text:p>gone</text:p></text:tracked-changes><text:p>kept</text:p>", "kept\n"},
        {"<text:ruby><text:p>base<text:ruby-text>kana</text:ruby-text></text:p></text:ruby>", "base\n"},
        {"<table:table table:name='T'><table:table-cell><text:p>a</text:p></table:table-cell></table:table>",
         "a\n"},
        {"<office:spreadsheet><table:table "
         "table:name='Sheet'><table:table-cell><text:p>a</text:p></table:table-cell>"
         "</table:table></office:spreadsheet>",
         "Sheet\na\n"},
        {"<draw:frame><draw:text-box><text:p>box</text:p></draw:text-box></draw:frame>", "box\n"},
        {"no paragraph", ""},
    };
    for (const auto& [xml, text] : cases)
        EXPECT_EQ(flatText(std::string(xml)), text) << xml;
}

TEST(OpenDocumentReader, TakesHeadersButNoDefaultsFromStyles)
{
    const auto content
        = readWith(readOpenDocument,
                   zipOf({{"styles.xml",
                           document("<style:style><text:p>default</text:p></style:style>"
                                    "<style:header><text:p>header</text:p></style:header>")},
                          {"content.xml", document("<text:p>body</text:p>")},
                          {"meta.xml",
                           document("<office:meta><dc:title>Name</dc:title><meta:keyword>one</meta:keyword>"
                                    "<meta:keyword>two</meta:keyword></office:meta>")}}));
    EXPECT_EQ(content.status, ContentStatus::Read) << content.reason;
    EXPECT_EQ(content.text, "body\nheader\n");
    EXPECT_EQ(fieldOf(content, "title"), "Name");
    EXPECT_EQ(fieldOf(content, "keywords"), "one");
    EXPECT_EQ(content.fields.size(), 3U);
}

TEST(OpenDocumentReader, TellsEncryptedDocuments)
{
    const auto content = readWith(
        readOpenDocument,
        zipOf({{"META-INF/manifest.xml", "<m:manifest xmlns:m='m'><m:encryption-data/></m:manifest>"},
               {"content.xml", "\x01\x02\x03"}}));
    EXPECT_EQ(content.status, ContentStatus::Locked);
}

TEST(OpenDocumentReader, ReportsAMissingOrBrokenBody)
{
    EXPECT_EQ(readWith(readOpenDocument, zipOf({{"meta.xml", document("")}})).status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readOpenDocument, zipOf({{"content.xml", "<a>"}})).status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readOpenDocument, "no zip file").status, ContentStatus::Damaged);
}
