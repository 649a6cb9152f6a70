// Whole documents: what they say of themselves, what is no Word document, and what packages made to do harm
// come to.

#include "platform/word/WordDocumentReader.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSValue.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/word/WordDocumentProperties.h"
#include "tests/support/ReadWith.h"
#include "tests/support/WordBytes.h"
#include "tests/word/ReadWord.h"

using NSAttributedStringDocumentFormats::initWithWordDocument;

namespace {

NSAny valueOf(const NSAny::Dictionary& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

std::string repeated(std::string_view piece, std::size_t count)
{
    std::string text;
    for (std::size_t index = 0; index < count; ++index)
        text += piece;
    return text;
}

/// What is read within limits.
struct Read {
    Content content;
    WordDocument document;
};

Read readWithin(const ContentLimits& limits, const std::string& bytes)
{
    Read read;
    ContentSink sink(limits);
    auto result = readWordDocument(sourceOfBytes(bytes), sink, read.document);
    read.content = sink.takeContent(result.status, std::move(result.reason));
    return read;
}

NSError errorOf(const std::string& bytes)
{
    NSError error;
    EXPECT_FALSE(initWithWordDocument(NSData{bytes}, nullptr, &error));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    return error;
}

constexpr auto kCorrupt = static_cast<int>(NSCocoaError::FileReadCorruptFile);
constexpr auto kUnknown = static_cast<int>(NSCocoaError::FileReadUnknown);

} // namespace

TEST(WordDocumentReader, TellsWhatADocumentSaysOfItself)
{
    WordPackageBytes document;
    document.body = wordParagraph("a")
        + "<w:sectPr><w:pgSz w:w='11900' w:h='16840'/><w:pgMar w:top='1440' w:right='720' w:bottom='-360' "
          "w:left='1000'/></w:sectPr>";
    document.packageParts = {{"c", "metadata/core-properties", "docProps/core.xml", {}},
                             {"a", "extended-properties", "docProps/app.xml", {}}};
    document.members
        = {{"docProps/core.xml",
            "<cp:coreProperties xmlns:cp='c' xmlns:dc='d' xmlns:dcterms='t'><dc:title> Title </dc:title>"
            "<dc:creator>Author</dc:creator><dc:subject>Subject</dc:subject><dc:description>Comment"
            "</dc:description><cp:keywords>one, two;three</cp:keywords><cp:lastModifiedBy>Editor"
            "</cp:lastModifiedBy><cp:category>Category</cp:category>"
            "<dcterms:created>2001-01-02T00:00:01Z</dcterms:created>"
            "<dcterms:modified>nonsense</dcterms:modified></cp:coreProperties>"},
           {"docProps/app.xml",
            "<Properties xmlns='p'><Company>Company</Company><Manager>Manager</Manager></Properties>"}};
    NSAny::Dictionary attributes;
    (void)textOfWord(document, &attributes);
    EXPECT_EQ(valueOf(attributes, NSDocumentTypeDocumentAttribute), NSAny(NSOfficeOpenXMLTextDocumentType));
    EXPECT_EQ(valueOf(attributes, NSTitleDocumentAttribute), NSAny(u"Title"));
    EXPECT_EQ(valueOf(attributes, NSAuthorDocumentAttribute), NSAny(u"Author"));
    EXPECT_EQ(valueOf(attributes, NSSubjectDocumentAttribute), NSAny(u"Subject"));
    EXPECT_EQ(valueOf(attributes, NSCommentDocumentAttribute), NSAny(u"Comment"));
    EXPECT_EQ(valueOf(attributes, NSEditorDocumentAttribute), NSAny(u"Editor"));
    EXPECT_EQ(valueOf(attributes, NSCategoryDocumentAttribute), NSAny(u"Category"));
    EXPECT_EQ(valueOf(attributes, NSCompanyDocumentAttribute), NSAny(u"Company"));
    EXPECT_EQ(valueOf(attributes, NSManagerDocumentAttribute), NSAny(u"Manager"));
    EXPECT_EQ(valueOf(attributes, NSKeywordsDocumentAttribute),
              NSAny(NSAny::Array{u"one", u"two", u"three"}));
    EXPECT_EQ(valueOf(attributes, NSCreationTimeDocumentAttribute), NSAny(NSDate{86'401}));
    EXPECT_FALSE(valueOf(attributes, NSModificationTimeDocumentAttribute));
    const auto paper = valueOf(attributes, NSPaperSizeDocumentAttribute).object<NSValue>();
    ASSERT_TRUE(paper && paper->get<NSSize>());
    EXPECT_EQ(*paper->get<NSSize>(), (NSSize{595, 842}));
    EXPECT_EQ(valueOf(attributes, NSTopMarginDocumentAttribute), NSAny(72.0));
    EXPECT_EQ(valueOf(attributes, NSRightMarginDocumentAttribute), NSAny(36.0));
    EXPECT_EQ(valueOf(attributes, NSBottomMarginDocumentAttribute), NSAny(18.0));
    EXPECT_EQ(valueOf(attributes, NSLeftMarginDocumentAttribute), NSAny(50.0));
}

TEST(WordDocumentReader, TakesThePaperOfTheFirstSection)
{
    WordPackageBytes document;
    document.body = "<w:p><w:pPr><w:sectPr><w:pgSz w:w='2000' w:h='3000'/><w:bidi/></w:sectPr></w:pPr>"
        + wordRun("a") + "</w:p><w:sectPr><w:pgSz w:w='4000' w:h='5000'/></w:sectPr>";
    NSAny::Dictionary attributes;
    const auto text = textOfWord(document, &attributes);
    const auto paper = valueOf(attributes, NSPaperSizeDocumentAttribute).object<NSValue>();
    ASSERT_TRUE(paper && paper->get<NSSize>());
    EXPECT_EQ(*paper->get<NSSize>(), (NSSize{100, 150}));
    EXPECT_EQ(styleAt(text, u"a")->baseWritingDirection(), NSWritingDirection::Natural);
}

TEST(WordDocumentReader, ReadsDates)
{
    EXPECT_EQ(wordDate("2001-01-01"), NSAny(NSDate{0}));
    EXPECT_EQ(wordDate("2000-12-31T23:59:50Z"), NSAny(NSDate{-10}));
    for (const auto* const text :
         {"", "2001", "2001-13-01", "2001-02-30", "2001-01-01T0x:00:00Z", "-001-01-01"})
        EXPECT_FALSE(wordDate(text)) << text;
}

TEST(WordDocumentReader, TellsOtherKindsFromDamagedDocuments)
{
    EXPECT_EQ(errorOf("no zip file").code(), kCorrupt);
    EXPECT_EQ(errorOf("").code(), kCorrupt);
    EXPECT_EQ(errorOf(zipOf({{"a", "b"}})).code(), kCorrupt);
    const auto legacy = errorOf(word97Streams({narrowPiece("old")}).file());
    EXPECT_EQ(legacy.code(), kUnknown);
    EXPECT_EQ(legacy.localizedDescription(),
              "Word document: documents of Word 97 to 2003 are read as plain text only");
    EXPECT_EQ(errorOf(zipOf({{"xl/workbook.xml", "<workbook/>"}})).code(), kUnknown);

    WordPackageBytes document;
    document.body = "<w:p><w:r>";
    const auto damaged = errorOf(document.file());
    EXPECT_EQ(damaged.code(), kCorrupt);
    EXPECT_EQ(damaged.localizedDescription(), "Word document: the document's main part is damaged");
}

TEST(WordDocumentReader, ReadsADocumentWhoseOtherPartsAreDamaged)
{
    WordPackageBytes document;
    document.body = wordParagraph("body") + "<w:p><w:r><w:footnoteReference w:id='1'/></w:r></w:p>";
    for (const auto* const kind : {"styles", "numbering", "theme", "fontTable", "header"})
        document.parts.push_back({kind, kind, std::string(kind) + ".xml", "<broken"});
    document.parts.push_back({"f", "footnotes", "footnotes.xml",
                              "<w:footnotes xmlns:w='w'><w:footnote w:id='1'><w:p><w:r><w:t>note</w:t>"});
    EXPECT_EQ(textOfWord(document).string(), u"body\n[1]\n[1] note\n");
}

TEST(WordDocumentReader, NeverLeavesThePackage)
{
    WordPackageBytes document;
    document.body = "<w:p><w:r><w:drawing><pic:pic><a:blip r:embed='p'/></pic:pic></w:drawing></w:r></w:p>";
    document.parts = {{"f", "footnotes", "file:///etc/passwd", {}, true},
                      {"p", "image", "../../../../../../etc/passwd", {}, true}};
    document.members = {{"word/_rels/styles.xml.rels", "<Relationships/>"}};
    EXPECT_EQ(textOfWord(document).string(), u"\n");
}

TEST(WordDocumentReader, RefusesEntities)
{
    const auto bytes
        = zipOf({{"word/document.xml",
                  "<!DOCTYPE d [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><w:document xmlns:w='w'>"
                  "<w:p><w:t>&e;</w:t></w:p></w:document>"}});
    EXPECT_EQ(errorOf(bytes).code(), kCorrupt);
}

TEST(WordDocumentReader, CutsTheTextAtItsLimitAndSaysSo)
{
    ContentLimits limits;
    limits.textBytes = 5;
    WordPackageBytes document;
    document.body = wordParagraph("ab") + wordParagraph("cdef") + wordParagraph("gh");
    const auto read = readWithin(limits, document.file());
    EXPECT_EQ(read.content.status, ContentStatus::Read);
    EXPECT_EQ(read.document.text.string(), u"ab\ncd");
    EXPECT_EQ(read.content.cutNotes, std::vector<std::string>{"the text was cut at its size limit"});
}

TEST(WordDocumentReader, CutsElementsAtTheLimitOfTheirNesting)
{
    WordPackageBytes document;
    document.body = wordParagraph("before") + repeated("<w:p><w:r><w:pict>", 200) + "x"
        + repeated("</w:pict></w:r></w:p>", 200);
    const auto read = readWithin({}, document.file());
    EXPECT_EQ(read.content.status, ContentStatus::Read);
    EXPECT_TRUE(read.document.text.string().starts_with(u"before\n"));
    EXPECT_FALSE(read.content.cutNotes.empty());
}

TEST(WordDocumentReader, LeavesPicturesOutThatAreTooLarge)
{
    ContentLimits limits;
    limits.wholeFileBytes = 10;
    WordPackageBytes document;
    document.parts = {{"p", "image", "image.png", "12345678901"}, {"q", "image", "small.png", "123"}};
    document.body = "<w:p><w:r><w:pict><v:imagedata r:id='p'/><v:imagedata r:id='q'/></w:pict></w:r></w:p>";
    const auto read = readWithin(limits, document.file());
    ASSERT_EQ(read.document.text.string(), u"\uFFFC\uFFFC\n");
    EXPECT_EQ(read.content.cutNotes,
              std::vector<std::string>{"pictures that could not be read were left out"});
}

TEST(WordDocumentReader, ReadsTablesWithinMoreTablesThanItKeepsAsParagraphs)
{
    constexpr std::size_t kDepth = 20;
    WordPackageBytes document;
    document.body = repeated("<w:tbl><w:tr><w:tc>", kDepth) + wordParagraph("deep")
        + repeated("</w:tc></w:tr></w:tbl>", kDepth);
    const auto text = textOfWord(document);
    EXPECT_EQ(text.string(), u"deep\n");
    EXPECT_EQ(styleAt(text, u"deep")->textBlocks().size(), 16U);
}

TEST(WordDocumentReader, KeepsTheTextOfMoreLooksThanItKeeps)
{
    constexpr unsigned kLooks = 50'001;
    WordPackageBytes document;
    document.body = "<w:p>";
    for (unsigned number = 0; number < kLooks; ++number)
        document.body += wordRun("a", "<w:position w:val='" + std::to_string(number + 1) + "'/>");
    document.body += "</w:p>";
    const auto text = textOfWord(document);
    ASSERT_EQ(text.length(), kLooks + 1);
    EXPECT_EQ(text.attribute(NSBaselineOffsetAttributeName, kLooks - 3), NSAny(24'999.5));
    EXPECT_EQ(text.attribute(NSBaselineOffsetAttributeName, kLooks - 2), NSAny(25'000.0));
    EXPECT_EQ(text.attribute(NSBaselineOffsetAttributeName, kLooks - 1), NSAny(25'000.0));
}

TEST(WordDocumentReader, ReadsElementsInNoOrder)
{
    const auto text = textOfWordBody(
        "<w:t>a</w:t><w:tc><w:t>b</w:t></w:tc><w:tr><w:tc/></w:tr><w:tcPr><w:vMerge/></"
        "w:tcPr><w:p><w:p><w:t>c"
        "</w:t></w:p><w:t>d</w:t></w:p><w:rPr><w:b/></w:rPr><w:fldChar w:fldCharType='end'/><w:footnoteRef/>"
        "<w:footnote w:id='1'><w:t>e</w:t></w:footnote><pic:pic><a:blip r:embed='x'/></pic:pic>"
        "<w:tbl><w:p><w:t>f</w:t></w:p></w:tbl>");
    EXPECT_EQ(text.string(), u"a\nb\nd\nc\ne\nf\n");
}

TEST(WordDocumentReader, GivesEveryParagraphOneStyle)
{
    auto text = NSMutableAttributedString(textOfWordBody(
        wordParagraph("a", "<w:jc w:val='center'/>") + "<w:tbl><w:tr><w:tc>" + wordParagraph("b")
        + "</w:tc></w:tr></w:tbl><w:p><w:r><w:br/><w:t>c</w:t><w:br "
          "w:type='page'/><w:t>d</w:t></w:r></w:p>"));
    const auto before = NSAttributedString(text);
    text.fixAttributesInRange({0, text.length()});
    EXPECT_EQ(text, before);
}

TEST(WordDocumentReader, SaysInTheLogWhatWasCut)
{
    std::vector<std::string> lines;
    const NSLogCapture capture([&lines](std::string_view line) { lines.emplace_back(line); });
    WordPackageBytes document;
    document.body = repeated("<w:p>", 250) + repeated("</w:p>", 250);
    EXPECT_TRUE(initWithWordDocument(NSData{document.file()}));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], "Read in part: Word document: a part was cut at the limit of its nesting");
}
