#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentReader.h"
#include "platform/media/ImageMetadata.h"
#include "platform/media/PNGText.h"
#include "platform/types/UTType.h"
#include "tests/support/SampleIndex.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <string>
#include <thread>
#include <vector>
#include <zlib.h>

using namespace std::string_literals;
using namespace std::string_view_literals;
using testing::HasSubstr;

namespace {

std::string bigEndian(std::size_t value, unsigned byteCount)
{
    std::string bytes;
    while (byteCount-- > 0)
        bytes += static_cast<char>((value >> (8U * byteCount)) & 0xFFU);
    return bytes;
}

std::string pngChunk(std::string_view type, std::string_view data)
{
    const auto checked = std::string(type).append(data);
    const auto sum
        = crc32(0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<uInt>(checked.size()));
    return bigEndian(data.size(), 4) + checked + bigEndian(sum, 4);
}

std::string png(std::string_view textChunks)
{
    return "\x89PNG\r\n\x1A\n"s + pngChunk("IHDR", "\0\0\0\1\0\0\0\1\x08\0\0\0\0"sv) + std::string(textChunks)
        + pngChunk("IEND", "");
}

std::string compressed(const std::string& text)
{
    std::string bytes(compressBound(text.size()), '\0');
    auto length = static_cast<uLongf>(bytes.size());
    EXPECT_EQ(compress(reinterpret_cast<Bytef*>(bytes.data()), &length,
                       reinterpret_cast<const Bytef*>(text.data()), text.size()),
              Z_OK);
    bytes.resize(length);
    return bytes;
}

std::string jpegSegment(char marker, std::string_view data)
{
    return "\xFF"s + marker + bigEndian(data.size() + 2, 2) + std::string(data);
}

std::string jpegWithXMP(std::string_view title)
{
    const auto packet = "http://ns.adobe.com/xap/1.0/\0"s
        + "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
          "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
          "<rdf:Description xmlns:dc='http://purl.org/dc/elements/1.1/'><dc:title><rdf:Alt>"
          "<rdf:li xml:lang='x-default'>"
        + std::string(title)
        + "</rdf:li></rdf:Alt></dc:title><dc:subject><rdf:Bag><rdf:li>sea</rdf:li><rdf:li>ship</rdf:li></"
          "rdf:Bag>"
          "</dc:subject></rdf:Description></rdf:RDF></x:xmpmeta>";
    return "\xFF\xD8"s + jpegSegment('\xE1', packet) + jpegSegment('\xFE', "a comment") + "\xFF\xD9";
}

Content readImage(std::string_view bytes)
{
    ContentSource source;
    source.bytes = bytes;
    source.typeIdentifier = "public.png";
    return readContent(source);
}

} // namespace

TEST(PNGText, ReadsAllKindsOfChunks)
{
    const auto texts = textsOfPNG(png(pngChunk("tEXt", "Title\0caf\xE9"sv)
                                      + pngChunk("zTXt", "Comment\0\0"s + compressed("squeezed"))
                                      + pngChunk("iTXt", "Author\0\0\0en\0Autor\0Zoë"sv)
                                      + pngChunk("iTXt", "Description\0\1\0\0\0"s + compressed("größer"))));
    ASSERT_EQ(texts.size(), 4U);
    EXPECT_EQ(texts[0].text, "café");
    EXPECT_EQ(texts[1].keyword, "Comment");
    EXPECT_EQ(texts[1].text, "squeezed");
    EXPECT_EQ(texts[2].text, "Zoë");
    EXPECT_EQ(texts[3].text, "größer");
}

TEST(PNGText, BoundsWhatIsExpanded)
{
    const auto texts
        = textsOfPNG(png(pngChunk("zTXt", "Comment\0\0"s + compressed(std::string(50'000'000, 'x')))));
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_LE(texts[0].text.size(), 65536U);
}

TEST(PNGText, SurvivesBrokenChunks)
{
    const auto whole = png(pngChunk("tEXt", "Title\0first"sv) + pngChunk("tEXt", "no keyword")
                           + pngChunk("zTXt", "Comment\0\0garbage"sv) + pngChunk("iTXt", "Author\0\1"sv)
                           + "\xFF\xFF\xFF\xFFtEXt");
    for (std::size_t length = 0; length <= whole.size(); ++length)
        EXPECT_LE(textsOfPNG(std::string_view(whole).substr(0, length)).size(), 2U);
    EXPECT_EQ(textsOfPNG(whole).front().text, "first");
}

TEST(ImageDescriptionReader, GivesFieldsAndText)
{
    const auto content
        = readImage(png(pngChunk("tEXt", "Title\0Harbour"sv) + pngChunk("tEXt", "Description\0Harbour"sv)
                        + pngChunk("tEXt", "Author\0Ann"sv)));
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "Harbour\nAnn");
    ASSERT_EQ(content.fields.size(), 2U);
    EXPECT_EQ(content.fields[0].name, "title");
    EXPECT_EQ(content.fields[1].name, "author");
}

TEST(ImageDescriptionReader, ReadsXMPAndComment)
{
    const auto content = readImage(jpegWithXMP("Evening at sea"));
    EXPECT_THAT(content.text, HasSubstr("Evening at sea"));
    EXPECT_THAT(content.text, HasSubstr("ship"));
    EXPECT_THAT(content.text, HasSubstr("a comment"));
}

TEST(ImageDescriptionReader, TakesBrokenImagesForImagesWithoutDescription)
{
    const auto whole = jpegWithXMP("title");
    for (const auto bytes : {""sv, "x"sv, "\x89PNG\r\n\x1A\n"sv, "\xFF\xD8\xFF"sv, "II*\0\xFF\xFF\xFF\xFF"sv,
                             std::string_view(whole).substr(0, 100)}) {
        const auto content = readImage(bytes);
        EXPECT_EQ(content.status, ContentStatus::Read);
        EXPECT_EQ(content.text, "");
    }
}

TEST(ImageDescriptionReader, ReadsOnManyThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([number] {
            const auto title = "title" + std::to_string(number);
            const auto bytes = jpegWithXMP(title);
            for (int round = 0; round < 200; ++round)
                EXPECT_THAT(readImage(bytes).text, HasSubstr(title));
        });
    }
    for (auto& thread : threads)
        thread.join();
}

TEST(ImageSamples, AreReadWithoutHarm)
{
    const auto samples = samplesOf("images");
    if (samples.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/images";
    for (const auto& sample : samples) {
        if (sample.file.ends_with(".svg"))
            continue; // Text, which another reader reads.
        const auto file = FileDescriptor::openForReading(sample.path);
        ContentSource source;
        source.fileDescriptor = file.get();
        source.typeIdentifier = "public.png";
        const auto content = readContent(source);
        EXPECT_EQ(content.status, ContentStatus::Read) << sample.file << ": " << content.reason;
        EXPECT_TRUE(isValidUTF8(content.text)) << sample.file;
    }
}
