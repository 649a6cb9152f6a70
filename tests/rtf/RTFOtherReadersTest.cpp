// What a word processor makes of documents that are written here. Skipped where there is none.

#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

bool runs(const std::string& command)
{
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0; // NOLINT(concurrency-mt-unsafe)
}

} // namespace

TEST(RTFOtherReaders, SeeTheSameText)
{
    if (!runs("command -v soffice"))
        GTEST_SKIP() << "soffice is not installed";
    NSMutableAttributedString text;
    NSMutableParagraphStyle style;
    style.setAlignment(NSTextAlignment::Center);
    text.appendAttributedString(
        NSAttributedString(u"Heading \u00E9 \u4E2D\n",
                           {{std::u16string(NSParagraphStyleAttributeName), style.copy()},
                            {std::u16string(NSFontAttributeName), NSFont::boldSystemFontOfSize(18)}}));
    text.appendAttributedString(NSAttributedString(u"plain {braces} \\ \U0001F600\n"));
    text.appendAttributedString(
        NSAttributedString(u"link", {{std::u16string(NSLinkAttributeName), u"https://a.example/"}}));
    const TemporaryFolder folder;
    const auto path = folder.path() / "text.rtf";
    std::ofstream(path, std::ios::binary)
        << NSAttributedStringDocumentFormats::RTFFromRange(text, {0, text.length()})->bytes;
    ASSERT_TRUE(runs("cd " + folder.path().native()
                     + " && HOME=$PWD soffice --headless --convert-to 'txt:Text (encoded):UTF8' text.rtf"));
    std::ostringstream seen;
    seen << std::ifstream(folder.path() / "text.txt").rdbuf();
    EXPECT_THAT(seen.str(), testing::HasSubstr(UTF8FromUTF16(text.string())));
}
