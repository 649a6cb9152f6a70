// How fast Word documents are read, as attributed strings and as the index reads them: megabytes of the
// body's XML a second, for bodies of 1, 10 and 100 MB of paragraphs, runs, list items and table cells. The
// growth is that of the time for one megabyte from the smallest to the largest; linear is 1. And how fast
// they are written: megabytes of text a second.

#include "bench/Growth.h"
#include "platform/media/OfficeOpenXMLReader.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/word/NSAttributedStringWord.h"
#include "platform/word/WordDocumentReader.h"
#include "tests/support/WordPackageBytes.h"

#include <fmt/format.h>

#include <array>
#include <functional>
#include <stdexcept>
#include <string>

namespace {

constexpr std::size_t kMegabyte = 1'000'000;
constexpr std::array<std::size_t, 3> kMegabytes{1, 10, 100};

std::string paragraph(std::size_t)
{
    // As writers write them, most of it no text.
    return "<w:p w:rsidR='00A77B3E' w:rsidRDefault='00A77B3E'><w:pPr><w:spacing w:after='120'/></w:pPr><w:r "
           "w:rsidRPr='00C55A21'><w:rPr><w:lang w:val='en-GB'/></w:rPr><w:t xml:space='preserve'>Some words "
           "of "
           "a line </w:t></w:r></w:p>";
}

std::string run(std::size_t number)
{
    const auto text = wordRun("run ", number % 2 == 0 ? "<w:b/><w:sz w:val='24'/>" : "<w:i/>");
    return number % 50 == 0 ? "</w:p><w:p>" + text : text;
}

std::string item(std::size_t number)
{
    return wordParagraph(
        "item", fmt::format("<w:numPr><w:ilvl w:val='{}'/><w:numId w:val='1'/></w:numPr>", number % 3));
}

std::string cell(std::size_t number)
{
    const auto text = "<w:tc>" + wordParagraph("cell") + "</w:tc>";
    return number % 4 == 3 ? text + "</w:tr><w:tr>" : text;
}

struct Shape {
    const char* name;
    const char* before;
    std::string (*piece)(std::size_t number);
    const char* after;
};

constexpr std::array<Shape, 4> kShapes{{{"paragraphs", "", paragraph, ""},
                                        {"runs", "<w:p>", run, "</w:p>"},
                                        {"list items", "", item, ""},
                                        {"table cells", "<w:tbl><w:tr>", cell, "</w:tr></w:tbl>"}}};

std::string documentOf(const Shape& shape, std::size_t byteCount)
{
    WordPackageBytes document;
    document.parts.push_back(
        {"n", "numbering", "numbering.xml",
         wordRoot("numbering",
                  "<w:abstractNum w:abstractNumId='0'><w:lvl w:ilvl='0'><w:lvlText w:val='%1.'/></w:lvl>"
                  "<w:lvl w:ilvl='1'><w:lvlText w:val='%1.%2'/></w:lvl><w:lvl w:ilvl='2'><w:lvlText "
                  "w:val='%3)'/></w:lvl></w:abstractNum><w:num w:numId='1'><w:abstractNumId "
                  "w:val='0'/></w:num>")});
    document.body = shape.before;
    for (std::size_t number = 0; document.body.size() < byteCount; ++number)
        document.body += shape.piece(number);
    document.body += shape.after;
    return document.file();
}

void require(const ReadResult& result)
{
    if (result.status != ContentStatus::Read)
        throw std::logic_error("the document was not read: " + result.reason);
}

void printRow(std::string_view name, const Shape& shape,
              const std::function<void(const ContentSource&)>& read)
{
    GrowthFigures rates{};
    for (std::size_t index = 0; index < kMegabytes.size(); ++index) {
        const auto megabytes = kMegabytes.at(index);
        const auto bytes = documentOf(shape, megabytes * kMegabyte);
        ContentSource source;
        source.bytes = bytes;
        rates.at(index)
            = static_cast<double>(megabytes) / bestProcessorTime([&] { read(source); }, 1 + 10 / megabytes);
    }
    printGrowthOfRate(fmt::format("{} {}", name, shape.name), rates);
}

/// Prose with four runs to a paragraph, of which each fifth is an item of a list.
NSAttributedString proseOf(std::size_t byteCount)
{
    NSMutableParagraphStyle plain;
    plain.setParagraphSpacing(6);
    auto item = plain;
    item.setTextLists({std::make_shared<const NSTextList>(u"{disc}")});
    const auto looks = [](const NSMutableParagraphStyle& style) {
        const NSAttributes base{
            {std::u16string(NSParagraphStyleAttributeName), style.copy()},
            {std::u16string(NSFontAttributeName), NSFont::fontWithName(u"Helvetica", 12)}};
        auto bold = base;
        bold.insert_or_assign(std::u16string(NSFontAttributeName),
                              NSFont::fontWithName(u"Helvetica-Bold", 12));
        auto red = base;
        red.emplace(NSForegroundColorAttributeName, NSColor::redColor());
        return std::array{base, bold, red};
    };
    // As in texts that come from archives, runs share their attributes.
    const auto paragraphOf = [&looks](const std::u16string& start, const NSMutableParagraphStyle& style) {
        const auto own = looks(style);
        NSMutableAttributedString paragraph(
            NSAttributedString(start + u"A few plain words of a line, then ", own[0]));
        paragraph.appendAttributedString(NSAttributedString(u"some that are bold, and ", own[1]));
        paragraph.appendAttributedString(NSAttributedString(u"some in red", own[2]));
        paragraph.appendAttributedString(NSAttributedString(u", and an end that is plain again.\n", own[0]));
        return paragraph;
    };
    const auto plainParagraph = paragraphOf(u"", plain);
    const auto itemParagraph = paragraphOf(u"\t\u2022\t", item);
    NSMutableAttributedString text;
    for (std::size_t number = 0; text.length() < byteCount; ++number)
        text.appendAttributedString(number % 5 == 4 ? itemParagraph : plainParagraph);
    return text;
}

void printWriting()
{
    GrowthFigures rates{};
    for (std::size_t index = 0; index < kMegabytes.size(); ++index) {
        const auto megabytes = kMegabytes.at(index);
        const auto text = proseOf(megabytes * kMegabyte);
        const auto write = [&text] {
            if (!NSAttributedStringDocumentFormats::WordDocumentFromRange(text, {0, text.length()}))
                throw std::logic_error("the document was not written");
        };
        rates.at(index) = static_cast<double>(megabytes) / bestProcessorTime(write, 1 + 10 / megabytes);
    }
    printGrowthOfRate("write prose", rates);
}

} // namespace

int main()
{
    printGrowthHeader("operation", "MB/s", {"1 MB", "10 MB", "100 MB"});
    for (const auto& shape : kShapes) {
        printRow("index", shape, [](const ContentSource& source) {
            ContentSink sink(ContentLimits{});
            require(readOfficeOpenXML(source, sink));
        });
        printRow("read", shape, [](const ContentSource& source) {
            ContentSink sink(ContentLimits{});
            WordDocument document;
            require(readWordDocument(source, sink, document));
        });
    }
    printWriting();
    return 0;
}
