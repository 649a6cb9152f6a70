#include "platform/media/ZipContainer.h"

#include "tests/support/CompoundFileBytes.h"
#include "tests/support/ZipBytes.h"

#include <gtest/gtest.h>

namespace {

class ZipContainerTest : public testing::Test {
protected:
    std::optional<ZipContainer> open(std::string_view bytes)
    {
        m_source.bytes = bytes;
        return ZipContainer::open(m_source, m_sink, m_failure);
    }

    PartStatus read(ZipContainer& container, std::string_view name)
    {
        m_text.clear();
        return container.readMember(name, [this](std::string_view bytes) {
            m_text += bytes;
            return true;
        });
    }

    static ContentLimits smallLimits()
    {
        ContentLimits limits;
        limits.expandedBytes = 100'000;
        limits.entries = 3;
        return limits;
    }

    ContentSource m_source;
    ContentSink m_sink{smallLimits()};
    ReadResult m_failure;
    std::string m_text;
};

} // namespace

TEST_F(ZipContainerTest, ReadsMembersInAnyOrder)
{
    const auto bytes = zipOf({{"first.xml", "one"}, {"folder/second.xml", "two"}});
    auto container = open(bytes);
    ASSERT_TRUE(container);
    EXPECT_EQ(read(*container, "folder/second.xml"), PartStatus::Read);
    EXPECT_EQ(m_text, "two");
    EXPECT_EQ(read(*container, "first.xml"), PartStatus::Read);
    EXPECT_EQ(m_text, "one");
    EXPECT_EQ(read(*container, "third.xml"), PartStatus::Absent);
}

TEST_F(ZipContainerTest, FindsNamesByAnyCaseAndSlash)
{
    const auto bytes = zipOf({{"Word\\Document.XML", "text"}});
    auto container = open(bytes);
    ASSERT_TRUE(container);
    EXPECT_TRUE(container->hasMember("/word/document.xml"));
    EXPECT_EQ(read(*container, "word/document.xml"), PartStatus::Read);
    EXPECT_EQ(m_text, "text");
}

TEST_F(ZipContainerTest, RefusesWhatIsCutOffAnywhere)
{
    const auto bytes = zipOf({{"a.xml", "some text"}});
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const auto container = open(std::string_view(bytes).substr(0, length));
        EXPECT_FALSE(container && container->hasMember("a.xml")) << length;
        EXPECT_TRUE(container || m_failure.status == ContentStatus::Damaged) << length;
    }
}

TEST_F(ZipContainerTest, ReportsBytesThatFailTheirChecksum)
{
    auto bytes = zipOf({{"a.xml", "ABCDEFGH"}});
    const auto place = bytes.find("ABCDEFGH"); // Too short to be worth deflating: stored as it is.
    ASSERT_NE(place, std::string::npos);
    bytes[place] = 'Z';
    auto container = open(bytes);
    ASSERT_TRUE(container);
    EXPECT_EQ(read(*container, "a.xml"), PartStatus::Damaged);
}

TEST_F(ZipContainerTest, TellsEncryptedMembers)
{
    const auto bytes = zipOf({{"a.xml", "secret"}}, "password");
    auto container = open(bytes);
    ASSERT_TRUE(container);
    EXPECT_EQ(read(*container, "a.xml"), PartStatus::Locked);
    EXPECT_EQ(m_text, "");
}

TEST_F(ZipContainerTest, CutsABombAtTheLimitOfAllMembers)
{
    const std::string zeros(60'000, '\0');
    const auto bytes = zipOf({{"a", zeros}, {"b", zeros}});
    auto container = open(bytes);
    ASSERT_TRUE(container);
    EXPECT_EQ(read(*container, "a"), PartStatus::Read);
    EXPECT_EQ(read(*container, "b"), PartStatus::Cut);
    EXPECT_LE(m_text.size(), 40'000U);
    EXPECT_EQ(m_sink.takeContent(ContentStatus::Read).cutNotes.size(), 1U);
}

TEST_F(ZipContainerTest, LeavesOutMembersOverTheLimit)
{
    const auto bytes = zipOf({{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}});
    const auto container = open(bytes);
    ASSERT_TRUE(container);
    EXPECT_EQ(container->memberNames(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(m_sink.takeContent(ContentStatus::Read).cutNotes.size(), 1U);
}

TEST_F(ZipContainerTest, RefusesADirectoryThatClaimsMillionsOfMembers)
{
    // The end records of a large zip file, behind a directory of one member.
    std::string bytes("PK\x01\x02", 4);
    bytes.resize(46);
    const auto record = bytes.size();
    bytes += "PK\x06\x06";
    putLittleEndian(bytes, record + 4, 44, 8);
    putLittleEndian(bytes, record + 24, 1ULL << 32, 8);
    putLittleEndian(bytes, record + 32, 1ULL << 32, 8);
    putLittleEndian(bytes, record + 40, 46, 8);
    putLittleEndian(bytes, record + 48, 0, 8);
    const auto locator = bytes.size();
    bytes += "PK\x06\x07";
    putLittleEndian(bytes, locator + 8, record, 8);
    putLittleEndian(bytes, locator + 16, 1, 4);
    const auto end = bytes.size();
    bytes += "PK\x05\x06";
    putLittleEndian(bytes, end + 8, 0xFFFF'FFFF'FFFF'FFFF, 8);
    putLittleEndian(bytes, end + 16, 0xFFFF'FFFF, 4);
    putLittleEndian(bytes, end + 20, 0, 2);
    EXPECT_FALSE(open(bytes));
    EXPECT_EQ(m_failure.status, ContentStatus::Damaged);
}
