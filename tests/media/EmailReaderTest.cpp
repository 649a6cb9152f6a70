#include "platform/media/EmailReader.h"

#include "platform/foundation/FileDescriptor.h"
#include "tests/support/ReadWith.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

std::string attached(std::string_view fields, std::string_view body)
{
    return std::string("--b\n").append(fields).append("\n\n").append(body).append("\n");
}

std::string message(std::string_view parts)
{
    return "From: Ann <ann@x.org>\nTo: bob@x.org\nCc: cy@x.org\nSubject: Subject words\n"
           "Content-Type: multipart/mixed; boundary=b\n\n--b\n\nbody words\n"
        + std::string(parts) + "--b--\n";
}

} // namespace

TEST(EmailReader, GivesHeaderAndBodyALineEach)
{
    const auto content = readWith(readEmail, message(""));
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "Ann <ann@x.org>\nbob@x.org\ncy@x.org\nSubject words\nbody words\n");
}

TEST(EmailReader, ReadsAttachmentsByTheirMIMEType)
{
    const auto text = readWith(readEmail,
                               message(attached("Content-Type: text/html\nContent-Disposition: attachment; "
                                                "filename=page\nContent-Transfer-Encoding: base64",
                                                "PHA+cmljaDwvcD4="))) // "<p>rich</p>"
                          .text;
    EXPECT_TRUE(text.ends_with("body words\npage\nrich\n")) << text;
}

TEST(EmailReader, ReadsAttachmentsByTheirNameWhenTheTypeSaysNothing)
{
    const auto text = readWith(readEmail,
                               message(attached("Content-Type: application/octet-stream; name=notes.txt",
                                                "attached words")))
                          .text;
    EXPECT_TRUE(text.ends_with("notes.txt\nattached words\n")) << text;
}

TEST(EmailReader, ReadsNoAttachmentTwice)
{
    const auto text
        = readWith(readEmail, message(attached("Content-Type: text/plain; name=a.txt", "shown once"))).text;
    EXPECT_EQ(text.find("shown once"), text.rfind("shown once"));
    EXPECT_NE(text.find("a.txt"), std::string::npos);
}

TEST(EmailReader, SurvivesAttachmentsThatCannotBeRead)
{
    const auto content
        = readWith(readEmail,
                   message(attached("Content-Type: application/pdf; name=a.pdf", "no PDF")
                           + attached("Content-Type: text/plain\nContent-Disposition: attachment; "
                                      "filename=b.txt",
                                      "still read")));
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_TRUE(content.text.ends_with("b.txt\nstill read\n")) << content.text;
}

TEST(EmailReader, LeavesAttachmentsOfDeepContainersOut)
{
    ContentSink sink({});
    sink.setContainerDepth(sink.limits().containerNesting);
    const auto bytes = message(
        attached("Content-Type: text/plain\nContent-Disposition: attachment; filename=a.txt", "too deep"));
    EXPECT_EQ(readEmail(sourceOfBytes(bytes), sink).status, ContentStatus::Read);
    EXPECT_EQ(sink.containerDepth(), sink.limits().containerNesting);
    const auto content = sink.takeContent(ContentStatus::Read);
    EXPECT_EQ(content.text.find("too deep"), std::string::npos);
    EXPECT_EQ(content.cutNotes.size(), 1U);
}

TEST(EmailReader, ReadsFiles)
{
    const TemporaryFolder folder;
    const auto file = FileDescriptor::openForReading(folder.write("a.eml", message("")));
    const auto content = readContent(sourceOfFile(file.get(), "public.email-message"));
    EXPECT_TRUE(content.text.ends_with("body words\n"));
    const auto root = FileDescriptor::openForReading("/");
    EXPECT_EQ(readContent(sourceOfFile(root.get(), "public.email-message")).status,
              ContentStatus::Unreadable);
}
