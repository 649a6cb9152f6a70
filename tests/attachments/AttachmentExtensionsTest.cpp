#include "attachments/AttachmentExtensions.h"

#include "tests/support/LockedPDF.h"
#include "tests/support/PDFBytes.h"
#include "tests/support/SampleIndex.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

NSFileWrapper::Ref fileNamed(std::optional<std::u16string> preferred, std::optional<std::u16string> name,
                             bool extensionHidden = false)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({});
    wrapper->setPreferredFilename(std::move(preferred));
    wrapper->setFilename(std::move(name));
    auto attributes = wrapper->fileAttributes();
    attributes.extensionHidden = extensionHidden;
    wrapper->setFileAttributes(attributes);
    return wrapper;
}

std::u16string displayName(const NSFileWrapper::Ref& wrapper)
{
    return CVLExtensions::displayName(*NSTextAttachment::initWithFileWrapper(wrapper));
}

bool isProtected(std::string bytes, std::u16string fileType = u"com.adobe.pdf")
{
    return CVLExtensions::isPasswordProtectedPDF(
        *NSTextAttachment::initWithData(NSData{std::move(bytes)}, std::move(fileType)));
}

bool isProtectedFile(std::string bytes, const std::u16string& name)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({std::move(bytes)});
    wrapper->setPreferredFilename(name);
    return CVLExtensions::isPasswordProtectedPDF(*NSTextAttachment::initWithFileWrapper(wrapper));
}

} // namespace

TEST(AttachmentDisplayName, IsTheFilesPreferredName)
{
    EXPECT_EQ(displayName(fileNamed(u"Report.pdf", u"Report 1.pdf")), u"Report.pdf");
    EXPECT_EQ(displayName(fileNamed(std::nullopt, u"Report 1.pdf")), u"Report 1.pdf");
    EXPECT_EQ(displayName(fileNamed(std::nullopt, std::nullopt)), u"");
}

TEST(AttachmentDisplayName, IsEmptyWithoutAFile)
{
    EXPECT_EQ(CVLExtensions::displayName(NSTextAttachment()), u"");
}

TEST(AttachmentDisplayName, LeavesAHiddenExtensionOut)
{
    EXPECT_EQ(displayName(fileNamed(u"Report.pdf", std::nullopt, true)), u"Report");
    EXPECT_EQ(displayName(fileNamed(std::nullopt, u"Report 1.pdf", true)), u"Report 1");
    EXPECT_EQ(displayName(fileNamed(u"Report", std::nullopt, true)), u"Report");
}

TEST(PasswordProtectedPDF, IsNoneThatOpens)
{
    EXPECT_FALSE(isProtected(pdfWithPages({"text"})));
    EXPECT_FALSE(isProtectedFile(pdfWithPages({"text"}), u"Report.pdf"));
}

TEST(PasswordProtectedPDF, IsNothingOfAnotherTypeOrWithoutOne)
{
    EXPECT_FALSE(CVLExtensions::isPasswordProtectedPDF(NSTextAttachment()));
    EXPECT_FALSE(isProtected(lockedPDF("secret"), u"public.png"));
    EXPECT_FALSE(isProtectedFile(lockedPDF("secret"), u"Report.txt"));
}

TEST(PasswordProtectedPDF, IsNothingThatIsNoPDF)
{
    EXPECT_FALSE(isProtected("no PDF"));
    EXPECT_FALSE(isProtected(""));
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"Report.pdf");
    EXPECT_FALSE(CVLExtensions::isPasswordProtectedPDF(*NSTextAttachment::initWithFileWrapper(folder)));
}

TEST(PasswordProtectedPDF, IsOneThatNeedsAPassword)
{
    EXPECT_TRUE(isProtected(lockedPDF("secret")));
    EXPECT_TRUE(isProtectedFile(lockedPDF("secret"), u"Report.pdf"));
}

TEST(PasswordProtectedPDF, IsNoneThatTheEmptyPasswordOpens)
{
    EXPECT_FALSE(isProtected(lockedPDF("")));
    EXPECT_FALSE(isProtectedFile(lockedPDF(""), u"Report.pdf"));
}

TEST(PasswordProtectedPDF, IsTheSamplesThatAreLocked)
{
    const auto samples = samplesOf("pdf");
    if (samples.empty())
        GTEST_SKIP() << "there are no sample files here";
    int lockedCount = 0;
    for (const auto& sample : samples) {
        if (sample.verdict != "locked" && sample.verdict != "must")
            continue;
        std::ifstream file(sample.path, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(isProtected(bytes), sample.verdict == "locked") << sample.file;
        lockedCount += sample.verdict == "locked" ? 1 : 0;
    }
    EXPECT_GT(lockedCount, 0);
}
