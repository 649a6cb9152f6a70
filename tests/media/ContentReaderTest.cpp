#include "platform/media/ContentReader.h"

#include "platform/foundation/FileDescriptor.h"
#include "tests/support/ReadWith.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

ContentLimits limitsWithTextBytes(std::size_t byteCount)
{
    ContentLimits limits;
    limits.textBytes = byteCount;
    return limits;
}

} // namespace

TEST(ContentSink, CollectsText)
{
    ContentSink sink({});
    EXPECT_TRUE(sink.isEmpty());
    EXPECT_TRUE(sink.append("one"));
    sink.breakWord();
    sink.breakWord();
    EXPECT_TRUE(sink.append("two"));
    sink.breakLine();
    sink.breakLine();
    sink.breakWord();
    EXPECT_EQ(sink.byteCount(), 8U);
    const auto content = sink.takeContent(ContentStatus::Read);
    EXPECT_EQ(content.text, "one two\n");
    EXPECT_TRUE(content.cutNotes.empty());
    EXPECT_TRUE(sink.isEmpty());
}

TEST(ContentSink, BeginsWithNoBreak)
{
    ContentSink sink({});
    sink.breakLine();
    sink.breakWord();
    EXPECT_TRUE(sink.isEmpty());
}

TEST(ContentSink, CutsTextAtTheLimitWithANote)
{
    ContentSink sink(limitsWithTextBytes(5));
    EXPECT_TRUE(sink.append("abc"));
    EXPECT_FALSE(sink.append("defg"));
    EXPECT_TRUE(sink.isFull());
    EXPECT_FALSE(sink.append("h"));
    const auto content = sink.takeContent(ContentStatus::Read);
    EXPECT_EQ(content.text, "abcde");
    EXPECT_EQ(content.cutNotes.size(), 1U);
}

TEST(ContentSink, TakesATextThatJustFits)
{
    ContentSink sink(limitsWithTextBytes(3));
    EXPECT_TRUE(sink.append("abc"));
    EXPECT_TRUE(sink.takeContent(ContentStatus::Read).cutNotes.empty());
}

TEST(ContentSink, CutsBetweenCharacters)
{
    for (std::size_t byteCount = 1; byteCount <= 3; ++byteCount) {
        ContentSink sink(limitsWithTextBytes(byteCount));
        EXPECT_FALSE(sink.append("a€b"));
        EXPECT_EQ(sink.takeContent(ContentStatus::Read).text, "a") << byteCount;
    }
}

TEST(ContentSink, KeepsReplacedBytesWithinTheLimit)
{
    ContentSink sink(limitsWithTextBytes(4));
    EXPECT_FALSE(sink.append("\xFF\xFF\xFF")); // Each becomes three bytes.
    EXPECT_EQ(sink.takeContent(ContentStatus::Read).text, "\uFFFD");
}

TEST(ContentSink, CleansText)
{
    ContentSink sink({});
    EXPECT_TRUE(sink.append(std::string_view("a\0b\xFF", 4)));
    EXPECT_EQ(sink.takeContent(ContentStatus::Read).text, "a b\uFFFD");
}

TEST(ContentSink, KeepsShortFieldsThatAreNotEmpty)
{
    ContentSink sink({});
    sink.addField("title", "");
    sink.addField("author", "Ann\xFF");
    sink.addField("subject", std::string(5000, 'x'));
    const auto fields = sink.takeContent(ContentStatus::Read).fields;
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[0].name, "author");
    EXPECT_EQ(fields[0].value, "Ann\uFFFD");
    EXPECT_EQ(fields[1].value.size(), 4096U);
}

TEST(ContentSink, TakesTheSameNoteOnce)
{
    ContentSink sink({});
    sink.noteCut("a");
    sink.noteCut("b");
    sink.noteCut("a");
    EXPECT_EQ(sink.takeContent(ContentStatus::Read).cutNotes, (std::vector<std::string>{"a", "b"}));
}

TEST(ContentSink, StopsWhenTheTimeIsUp)
{
    ContentLimits limits;
    limits.time = std::chrono::milliseconds(0);
    ContentSink sink(limits);
    EXPECT_TRUE(sink.isFull());
    EXPECT_FALSE(sink.append("late"));
    const auto content = sink.takeContent(ContentStatus::Read);
    EXPECT_EQ(content.text, "");
    EXPECT_EQ(content.cutNotes.size(), 1U);
}

TEST(ContentReader, KnowsReadersByTheNearestAncestor)
{
    EXPECT_NE(contentReaderForType("public.plain-text"), nullptr);
    EXPECT_EQ(contentReaderForType("public.python-script"), contentReaderForType("public.plain-text"));
    EXPECT_EQ(contentReaderForType("public.xhtml"), contentReaderForType("public.html"));
    EXPECT_NE(contentReaderForType("public.html"), contentReaderForType("public.xml"));
    for (const auto* type : {"public.data", "public.mp3", "public.folder", "", "no.such.type"})
        EXPECT_EQ(contentReaderForType(type), nullptr) << type;
}

TEST(ContentReader, SaysWhenNoReaderKnowsAType)
{
    const auto content = readContent(sourceOfBytes("x", "public.mp3"));
    EXPECT_EQ(content.status, ContentStatus::UnknownKind);
    EXPECT_NE(content.reason.find("public.mp3"), std::string::npos);
    EXPECT_EQ(content.text, "");
}

TEST(ContentReader, LeavesContainersOutThatLieTooDeep)
{
    ContentSink sink({});
    sink.setContainerDepth(sink.limits().containerNesting + 1);
    EXPECT_EQ(readContentInto(sourceOfBytes("<p>x", "public.html"), sink).status, ContentStatus::Read);
    const auto content = sink.takeContent(ContentStatus::Read);
    EXPECT_EQ(content.text, "");
    EXPECT_EQ(content.cutNotes.size(), 1U);
}

TEST(ContentReader, GivesSourceBytesWithinALimit)
{
    const TemporaryFolder folder;
    const auto file = FileDescriptor::openForReading(folder.write("a", "abcdef"));
    const auto directory = FileDescriptor::openForReading(folder.path());
    std::string bytes;
    EXPECT_TRUE(readSourceBytes(sourceOfFile(file.get()), 4, bytes));
    EXPECT_EQ(bytes, "abcd");
    EXPECT_TRUE(readSourceBytes(sourceOfBytes("abcdef"), 3, bytes));
    EXPECT_EQ(bytes, "abc");
    EXPECT_FALSE(readSourceBytes(sourceOfFile(directory.get()), 4, bytes));
}
