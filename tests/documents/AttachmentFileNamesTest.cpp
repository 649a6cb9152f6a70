#include "documents/AttachmentFileNames.h"

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSTextAttachment.h"

#include <gtest/gtest.h>

namespace {

NSFileWrapper::Ref fileNamed(const std::u16string& name)
{
    auto file = NSFileWrapper::initRegularFileWithContents({"bytes"});
    file->setFilename(name);
    file->setPreferredFilename(name);
    return file;
}

NSAttributedString textWith(const std::vector<NSFileWrapper::Ref>& files)
{
    NSMutableAttributedString text;
    for (const auto& file : files)
        text.appendAttributedString(
            NSAttributedString::attributedStringWithAttachment(NSTextAttachment::initWithFileWrapper(file)));
    return text.copy();
}

} // namespace

TEST(AttachmentFileNames, AreCountedWhereFilesShareOne)
{
    const std::vector files{fileNamed(u"photo.png"), fileNamed(u"photo.png"), fileNamed(u"photo.png"),
                            fileNamed(u"notes"), fileNamed(u"notes")};
    makeFileNamesUnique(textWith(files));
    EXPECT_EQ(files[0]->filename(), u"photo.png");
    EXPECT_EQ(files[1]->filename(), u"photo 2.png");
    EXPECT_EQ(files[2]->filename(), u"photo 3.png");
    EXPECT_EQ(files[2]->preferredFilename(), u"photo 3.png");
    EXPECT_EQ(files[4]->filename(), u"notes 2");
}

TEST(AttachmentFileNames, PassOverNamesThatAreTaken)
{
    const std::vector files{fileNamed(u"photo 2.png"), fileNamed(u"photo.png"), fileNamed(u"photo.png")};
    makeFileNamesUnique(textWith(files));
    EXPECT_EQ(files[2]->filename(), u"photo 3.png");
}

TEST(AttachmentFileNames, StayForOneFileThatIsThereTwice)
{
    const auto file = fileNamed(u"photo.png");
    makeFileNamesUnique(textWith({file, file}));
    EXPECT_EQ(file->filename(), u"photo.png");
}
