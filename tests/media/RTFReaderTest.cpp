#include "platform/foundation/FileDescriptor.h"
#include "platform/media/ContentReader.h"
#include "platform/types/UTType.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <filesystem>

namespace {

Content readRTFFile(const std::string& path, std::string_view type)
{
    const auto file = FileDescriptor::openForReading(path);
    ContentSource source;
    source.fileDescriptor = file.get();
    source.typeIdentifier = type;
    return readContent(source);
}

} // namespace

TEST(RTFReader, ReadsDocument)
{
    const TemporaryFolder folder;
    const auto content
        = readRTFFile(folder.write("a.rtf", "{\\rtf1{\\info{\\title Name}}caf\\'e9\\par}"), kUTTypeRTF);
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "café\n");
    ASSERT_EQ(content.fields.size(), 1U);
    EXPECT_EQ(content.fields[0].value, "Name");
}

TEST(RTFReader, ReadsPackage)
{
    const TemporaryFolder folder;
    (void)folder.write("a.rtfd/TXT.rtf", "{\\rtf1 inside}");
    (void)folder.write("a.rtfd/other.rtf", "{\\rtf1 beside}");
    EXPECT_EQ(readRTFFile(folder.file("a.rtfd"), kUTTypeRTFD).text, "inside");
}

TEST(RTFReader, NeverFollowsLinksOutOfPackage)
{
    const TemporaryFolder folder;
    (void)folder.write("secret.rtf", "{\\rtf1 secret}");
    std::filesystem::create_directory(folder.file("a.rtfd"));
    std::filesystem::create_symlink(folder.file("secret.rtf"), folder.file("a.rtfd") + "/TXT.rtf");
    const auto content = readRTFFile(folder.file("a.rtfd"), kUTTypeRTFD);
    EXPECT_EQ(content.status, ContentStatus::Unreadable);
    EXPECT_EQ(content.text, "");
}

TEST(RTFReader, TellsDamageFromAbsence)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readRTFFile(folder.write("a.rtf", "no RTF"), kUTTypeRTF).status, ContentStatus::Damaged);
    std::filesystem::create_directory(folder.file("empty.rtfd"));
    EXPECT_EQ(readRTFFile(folder.file("empty.rtfd"), kUTTypeRTFD).status, ContentStatus::Unreadable);
}
