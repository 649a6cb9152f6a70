#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

namespace fs = std::filesystem;

namespace {

class IndexFile : public Transcript { };

TEST_F(IndexFile, IsMadeOnceForItsOwnerOnly)
{
    createIndex();
    EXPECT_EQ(fs::status(folder().file("notes.index")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    const auto again = corvel({"create", "notes.index"});
    EXPECT_EQ(again.status, 1);
    EXPECT_THAT(again.error, HasSubstr("corvel: notes.index: "));
}

TEST_F(IndexFile, StatusShowsWhatItHolds)
{
    createIndex();
    const auto human = corvel({"status", "--index", "notes.index"});
    EXPECT_EQ(human.status, 0);
    EXPECT_THAT(human.output,
                MatchesRegex("documents +0\nmaximum identifier +0\nsize +[0-9]+ bytes\nformat +[0-9]+\n"));
    const auto status = nlohmann::json::parse(corvel({"status", "--index", "notes.index", "--json"}).output);
    EXPECT_EQ(status.at("documents"), 0);
    EXPECT_EQ(status.at("maximumIdentifier"), 0);
    EXPECT_GT(status.at("size"), 0);
    EXPECT_GE(status.at("format"), 1);
}

TEST_F(IndexFile, CheckOfASoundOneIsQuiet)
{
    createIndex();
    const auto outcome = corvel({"check", "notes.index"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_THAT(outcome.output, IsEmpty());
}

TEST_F(IndexFile, CheckFindsDamage)
{
    createIndex();
    startService();
    for (int number = 0; number < 50; ++number)
        folder().write("library/" + std::to_string(number) + ".txt",
                       std::string(2000, static_cast<char>('a' + number % 26)) + " harbour");
    ASSERT_EQ(index({"library"}).status, 0);
    {
        std::fstream file(folder().file("notes.index"), std::ios::in | std::ios::out | std::ios::binary);
        constexpr std::streamoff kPage = 4096;
        const auto size = static_cast<std::streamoff>(fs::file_size(folder().file("notes.index")));
        for (auto offset = 2 * kPage; offset < size; offset += kPage)
            file.seekp(offset + 100).write("\xA5\xA5\xA5\xA5", 4);
    }
    const auto outcome = corvel({"check", "notes.index"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output + outcome.error, "");
}

std::string bytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::vector<std::string>> commandsOn(const std::string& path)
{
    return {
        {"index", "--index", path, "--socket", "service.sock", "a.txt"},
        {"remove", "--index", path, "--socket", "service.sock", "a.txt"},
        {"move", "--index", path, "--socket", "service.sock", "a.txt", "b.txt"},
        {"search", "--index", path, "a"},
        {"status", "--index", path},
        {"check", path},
    };
}

TEST_F(IndexFile, ThatIsMissingOrForeignFailsEveryCommandAndStaysAsItIs)
{
    const std::string foreign = "This is a letter, and no index.\n";
    folder().write("letter.txt", foreign);
    folder().write("a.txt", "a");
    startService();
    for (const std::string path : {"missing.index", "letter.txt", "."}) {
        for (const auto& command : commandsOn(path)) {
            const auto outcome = corvel(command);
            EXPECT_EQ(outcome.status, 1) << testing::PrintToString(command);
            EXPECT_EQ(outcome.error.find("corvel: " + path + ": "), 0U) << outcome.error;
        }
    }
    EXPECT_FALSE(fs::exists(folder().file("missing.index")));
    EXPECT_EQ(bytesOf(folder().file("letter.txt")), foreign);
}

} // namespace
