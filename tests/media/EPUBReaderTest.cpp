#include "platform/media/EPUBReader.h"

#include "tests/support/ReadWith.h"
#include "tests/support/ZipBytes.h"

#include <gtest/gtest.h>

namespace {

const ZipMember kContainer{"META-INF/container.xml",
                           "<container><rootfiles><rootfile full-path='book/content.opf'/><rootfile "
                           "full-path='other.opf'/></rootfiles></container>"};

const ZipMember kPackage{
    "book/content.opf",
    "<package><metadata xmlns:dc='d'><dc:title>Book</dc:title><dc:creator>Ann</dc:creator></metadata>"
    "<manifest><item id='a' href='a%20b.xhtml'/><item id='c' href='c.xhtml'/><item id='d' href='gone.xhtml'/>"
    "</manifest><spine><itemref idref='c'/><itemref idref='d'/><itemref idref='a'/><itemref idref='c'/>"
    "<itemref idref='none'/></spine></package>"};

std::string page(const std::string& text)
{
    return "<html><head><title>Chapter</title></head><body><p>" + text + "</p></body></html>";
}

} // namespace

TEST(EPUBReader, ReadsChaptersInReadingOrder)
{
    const auto content = readWith(readEPUB,
                                  zipOf({{"book/a b.xhtml", page("the end")},
                                         {"book/c.xhtml", page("the <b>begin</b>ning")},
                                         kPackage,
                                         kContainer}));
    EXPECT_EQ(content.status, ContentStatus::Read) << content.reason;
    EXPECT_EQ(content.text.substr(0, content.text.find_last_not_of('\n') + 1), "the beginning\nthe end");
    EXPECT_EQ(fieldOf(content, "title"), "Book");
    EXPECT_EQ(fieldOf(content, "author"), "Ann");
    EXPECT_EQ(content.fields.size(), 2U);
}

TEST(EPUBReader, TellsProtectedBooksFromProtectedFonts)
{
    const auto encryption = [](const std::string& members) {
        return ZipMember{"META-INF/encryption.xml", "<encryption>" + members + "</encryption>"};
    };
    const std::string font = "<CipherReference URI='book/font.otf'/>";
    const std::string chapters
        = "<CipherReference URI='book/a%20b.xhtml'/><CipherReference URI='book/c.xhtml'/>"
          "<CipherReference URI='book/gone.xhtml'/>";
    const ZipMember chapter{"book/c.xhtml", page("text")};
    EXPECT_EQ(readWith(readEPUB, zipOf({kContainer, kPackage, chapter, encryption(font)})).status,
              ContentStatus::Read);
    const auto locked
        = readWith(readEPUB, zipOf({kContainer, kPackage, chapter, encryption(font + chapters)}));
    EXPECT_EQ(locked.status, ContentStatus::Locked);
    EXPECT_EQ(locked.text, "");
}

TEST(EPUBReader, RefusesWhatHoldsNoBook)
{
    EXPECT_EQ(readWith(readEPUB, "no zip file").status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readEPUB, zipOf({kPackage})).status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readEPUB, zipOf({kContainer})).status, ContentStatus::Damaged);
}
