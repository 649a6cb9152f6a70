#include "cli/ItemAttachments.h"

#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace fs = std::filesystem;

namespace {

std::vector<std::string> names(const AttachmentsInfo& info)
{
    std::vector<std::string> names;
    for (const auto& [name, values] : info) {
        EXPECT_THAT(values, IsEmpty()) << name;
        names.push_back(name);
    }
    return names;
}

TEST(ItemAttachments, AreTheMemberFilesOfAPackage)
{
    const TemporaryFolder folder;
    for (const auto* member :
         {"NoteText", "NoteAttributes", "TXT.rtf", ".DS_Store", "scan.png", "list.txt", "folder/inner.txt"})
        folder.write(std::string("a.cvlnote/") + member, "x");
    fs::create_symlink("/etc/passwd", folder.file("a.cvlnote/link.txt"));
    EXPECT_THAT(names(attachmentsOfItem(folder.url("a.cvlnote")).info), ElementsAre("list.txt", "scan.png"));
}

TEST(ItemAttachments, LeaveOutTheSecondNamesOfANotesFiles)
{
    const TemporaryFolder folder;
    for (const auto* member : {"scan.png", "1__#$!@%!#__scan.png", "12__#$!@%!#__scan.png", "12", "1__.png",
                               "__#$!@%!#__scan.png"}) {
        folder.write(std::string("a.cvlnote/") + member, "x");
        folder.write(std::string("a.rtfd/") + member, "x");
    }
    EXPECT_THAT(names(attachmentsOfItem(folder.url("a.cvlnote")).info),
                ElementsAre("12", "1__.png", "__#$!@%!#__scan.png", "scan.png"));
    EXPECT_THAT(attachmentsOfItem(folder.url("a.rtfd")).info, SizeIs(6));
}

TEST(ItemAttachments, LeaveOutAMemberWhoseNameIsNoUTF8AndSaySo)
{
    const TemporaryFolder folder;
    folder.write("a.rtfd/bad\xFF.txt", "x");
    const auto attachments = attachmentsOfItem(folder.url("a.rtfd"));
    EXPECT_THAT(attachments.info, IsEmpty());
    EXPECT_THAT(attachments.notes, SizeIs(1));
}

TEST(ItemAttachments, AreTheNamedAttachmentsOfAMessage)
{
    const TemporaryFolder folder;
    folder.write("a.eml",
                 "From: a@example.org\r\nSubject: s\r\nMIME-Version: 1.0\r\n"
                 "Content-Type: multipart/mixed; boundary=b\r\n\r\n"
                 "--b\r\nContent-Type: text/plain\r\n\r\nbody\r\n"
                 "--b\r\nContent-Type: text/plain\r\nContent-Disposition: attachment; "
                 "filename=\"menu.txt\"\r\n\r\nquince\r\n"
                 "--b\r\nContent-Type: image/png\r\nContent-Disposition: attachment\r\n\r\nx\r\n"
                 "--b--\r\n");
    EXPECT_THAT(names(attachmentsOfItem(folder.url("a.eml")).info), ElementsAre("menu.txt"));
}

TEST(ItemAttachments, OtherItemsHaveNone)
{
    const TemporaryFolder folder;
    folder.write("plain/a.txt", "a");
    EXPECT_THAT(attachmentsOfItem(folder.url("plain/a.txt")).info, IsEmpty());
    EXPECT_THAT(attachmentsOfItem(folder.url("plain")).info, IsEmpty());
    EXPECT_THAT(attachmentsOfItem(folder.url("missing.eml")).info, IsEmpty());
}

TEST(ItemAttachmentsFromJSON, TakesAnObjectOfObjectsOfStrings)
{
    const auto info
        = attachmentsInfoFromJSON(R"({"a.png": {"TextRecognitionString": "invoice"}, "b.txt": {}})");
    const AttachmentsInfo expected{{"a.png", {{"TextRecognitionString", "invoice"}}}, {"b.txt", {}}};
    EXPECT_EQ(info, expected);
}

TEST(ItemAttachmentsFromJSON, RefusesAnythingElse)
{
    for (const auto* json :
         {"", "nonsense", "[]", "null", R"({"a": "text"})", R"({"a": {"TextRecognitionString": 1}})"}) {
        NSError error;
        EXPECT_EQ(attachmentsInfoFromJSON(json, &error), std::nullopt) << json;
        EXPECT_EQ(error.domain(), "corvel") << json;
    }
}

} // namespace
