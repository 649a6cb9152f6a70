#include "service/MailText.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/stat.h>

TEST(MailText, JoinsWhatIsPresentInItsOrder)
{
    const TemporaryFolder folder;
    folder.write(
        "a.eml",
        "Subject: Kite\r\nBcc: Dan <dan@example.org>\r\nTo: Bob <bob@example.org>, cy@example.org\r\n"
        "\r\n\r\n  The wind is up.  \r\n\r\n");
    EXPECT_EQ(textOfMailMessage(folder.url("a.eml"), nullptr),
              "Bob <bob@example.org>\ncy@example.org\nDan <dan@example.org>\nKite\nThe wind is up.");
}

TEST(MailText, SaysWhyAMessageCannotBeRead)
{
    const TemporaryFolder folder;
    NSError error;
    EXPECT_FALSE(textOfMailMessage(folder.url("missing.eml"), &error));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(textOfMailMessage(folder.url(""), &error));
    EXPECT_EQ(error.code(), EISDIR);
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(textOfMailMessage(folder.url("pipe"), &error));
    EXPECT_EQ(error.code(), EINVAL);
}

TEST(MailText, TakesAnyBytesForAMessage)
{
    const TemporaryFolder folder;
    folder.write("empty.eml", "");
    folder.write("junk.eml", std::string("\0\xFF\r\n\r\n\0", 7));
    EXPECT_TRUE(textOfMailMessage(folder.url("empty.eml"), nullptr));
    EXPECT_TRUE(textOfMailMessage(folder.url("junk.eml"), nullptr));
}
