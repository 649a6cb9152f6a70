#include "platform/text/NSTextAttachment.h"

#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/TextClasses.h"
#include "tests/support/KeyedValues.h"

#include <gtest/gtest.h>

namespace {

NSFileWrapper::Ref file(const std::u16string& name)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({"bytes"});
    wrapper->setPreferredFilename(name);
    return wrapper;
}

std::shared_ptr<NSTextAttachment> read(KeyedValues::Values values)
{
    return KeyedValues::make(NSTextAttachment::classObject(), std::move(values))
        .mutableObject<NSTextAttachment>();
}

/// A class with a key of its own behind the base's.
class FlaggedAttachment final : public NSTextAttachment {
public:
    bool flag = false;

    static const NSClass& classObject()
    {
        static const NSClass object{"FlaggedAttachment", &NSTextAttachment::classObject(), &initWithCoder};
        return object;
    }

    [[nodiscard]] const NSClass& classForCoder() const override { return classObject(); }

    [[nodiscard]] std::shared_ptr<NSTextAttachment> makeOfSameClass() const override
    {
        return std::make_shared<FlaggedAttachment>();
    }

    void encodeWithCoder(NSCoder& coder) const override
    {
        NSTextAttachment::encodeWithCoder(coder);
        coder.encodeBool(flag, "flag");
    }

private:
    static NSAny initWithCoder(NSCoder& coder)
    {
        auto attachment = std::make_shared<FlaggedAttachment>();
        attachment->decodeFromCoder(coder);
        attachment->flag = coder.decodeBoolForKey("flag");
        return attachment;
    }
};

} // namespace

TEST(NSTextAttachment, TakesItsTypeFromTheFilesName)
{
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(file(u"a.pdf"))->fileType(), u"com.adobe.pdf");
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(file(u"a.PDF"))->fileType(), u"com.adobe.pdf");
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(file(u"a.unknown-kind"))->fileType(), u"public.data");
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(file(u".pdf"))->fileType(), u"public.data");
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(file(u"pdf."))->fileType(), u"public.data");
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(file(u"pdf"))->fileType(), u"public.data");
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"folder");
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(folder)->fileType(), u"public.folder");
}

TEST(NSTextAttachment, HasNoTypeWithoutAName)
{
    EXPECT_EQ(NSTextAttachment().fileType(), std::nullopt);
    const auto nameless = NSFileWrapper::initRegularFileWithContents({});
    EXPECT_EQ(NSTextAttachment::initWithFileWrapper(nameless)->fileType(), std::nullopt);
}

TEST(NSTextAttachment, HasEitherAFileOrContents)
{
    const auto attachment = NSTextAttachment::initWithData(NSData{"bytes"}, u"public.png");
    EXPECT_EQ(attachment->contents()->bytes, "bytes");
    EXPECT_EQ(attachment->fileType(), u"public.png");
    const auto wrapper = file(u"a.pdf");
    attachment->setFileWrapper(wrapper);
    EXPECT_EQ(attachment->fileWrapper(), wrapper);
    EXPECT_EQ(attachment->contents(), std::nullopt);
    EXPECT_EQ(attachment->fileType(), u"com.adobe.pdf");
    attachment->setContents(NSData{"more"});
    EXPECT_EQ(attachment->fileWrapper(), nullptr);
    attachment->setFileWrapper(wrapper);
    attachment->setFileType(u"public.png");
    EXPECT_EQ(attachment->fileWrapper(), nullptr);
    EXPECT_EQ(attachment->fileType(), u"public.png");
}

TEST(NSTextAttachment, MayBeMadeEmptyAndGivenAFile)
{
    const auto attachment = NSTextAttachment::initWithData(std::nullopt, std::nullopt);
    EXPECT_EQ(attachment->contents(), std::nullopt);
    attachment->setFileWrapper(file(u"a.pdf"));
    EXPECT_EQ(attachment->fileType(), u"com.adobe.pdf");
}

TEST(NSTextAttachment, IsAnIdentity)
{
    const NSTextAttachment one;
    EXPECT_TRUE(one.isEqual(one));
    EXPECT_FALSE(one.isEqual(NSTextAttachment()));
}

TEST(NSTextAttachment, OwnsItsCell)
{
    const auto cell = std::make_shared<NSTextAttachmentCell>();
    {
        const auto attachment = std::make_shared<NSTextAttachment>();
        EXPECT_EQ(attachment->attachmentCell(), nullptr);
        attachment->setAttachmentCell(cell);
        EXPECT_EQ(attachment->attachmentCell(), cell);
        EXPECT_EQ(cell->attachment(), attachment.get());
        const auto other = std::make_shared<NSTextAttachmentCell>();
        attachment->setAttachmentCell(other);
        EXPECT_EQ(cell->attachment(), nullptr);
        attachment->setAttachmentCell(cell);
    }
    EXPECT_EQ(cell->attachment(), nullptr);
}

TEST(NSTextAttachment, ArchivesItsFileOnly)
{
    const auto wrapper = file(u"a.pdf");
    EXPECT_EQ(KeyedValues::of(*NSTextAttachment::initWithFileWrapper(wrapper)),
              (KeyedValues::Values{{"NSFileWrapper", wrapper}}));
}

TEST(NSTextAttachment, ArchivesContentsWithTheirType)
{
    EXPECT_EQ(KeyedValues::of(*NSTextAttachment::initWithData(NSData{"x"}, u"public.png")),
              (KeyedValues::Values{
                  {"NSFileWrapper", nullptr}, {"NS.contents", NSData{"x"}}, {"NS.fileType", u"public.png"}}));
}

TEST(NSTextAttachment, ReadsContentsBeforeAFile)
{
    const auto both = read({{"NSFileWrapper", file(u"a.pdf")},
                            {"NS.contents", NSData{"x"}},
                            {"NS.fileType", u"public.png"},
                            {"NS.later", 1}});
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(both->contents()->bytes, "x");
    EXPECT_EQ(both->fileType(), u"public.png");
    EXPECT_EQ(both->fileWrapper(), nullptr);
}

TEST(NSTextAttachment, ReadsAFileWhereContentsOrTypeAreMissing)
{
    const auto wrapper = file(u"a.pdf");
    EXPECT_EQ(read({{"NSFileWrapper", wrapper}})->fileWrapper(), wrapper);
    EXPECT_EQ(read({{"NSFileWrapper", wrapper}, {"NS.fileType", u"public.png"}})->fileWrapper(), wrapper);
    EXPECT_EQ(read({{"NSFileWrapper", wrapper}, {"NS.contents", NSData{"x"}}})->fileWrapper(), wrapper);
    EXPECT_EQ(read({{"NSFileWrapper", wrapper}, {"NS.contents", NSData{}}, {"NS.fileType", u"public.png"}})
                  ->fileWrapper(),
              wrapper);
    const auto typeOnly = read({{"NS.fileType", u"public.png"}});
    EXPECT_EQ(typeOnly->fileType(), u"public.png");
    EXPECT_EQ(read({{"NS.contents", NSData{"x"}}})->contents()->bytes, "x");
    EXPECT_EQ(read({{"NSFileWrapper", u"text"}})->fileWrapper(), nullptr);
}

TEST(NSTextAttachment, GoesThroughAnArchive)
{
    NSError error;
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(
        NSTextAttachment::initWithFileWrapper(file(u"a.pdf")), false, &error);
    ASSERT_TRUE(data) << error.localizedDescription();
    const auto back = NSKeyedUnarchiver::unarchivedObjectOfClasses(
                          {&NSTextAttachment::classObject(), &NSFileWrapper::classObject()}, data->bytes,
                          textClasses(), &error)
                          .mutableObject<NSTextAttachment>();
    ASSERT_TRUE(back) << error.localizedDescription();
    EXPECT_TRUE(back->isExactly<NSTextAttachment>());
    ASSERT_NE(back->fileWrapper(), nullptr);
    EXPECT_EQ(back->fileWrapper()->preferredFilename(), u"a.pdf");
    EXPECT_EQ(back->fileWrapper()->regularFileContents()->bytes, "bytes");
}

TEST(NSTextAttachment, MayBeDerivedFrom)
{
    const auto attachment = std::make_shared<FlaggedAttachment>();
    attachment->setFileWrapper(file(u"a.pdf"));
    attachment->flag = true;
    const NSClassTable classes(textClasses(), {&FlaggedAttachment::classObject()});
    NSError error;
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(attachment, false, &error);
    ASSERT_TRUE(data) << error.localizedDescription();
    const auto back
        = NSKeyedUnarchiver::unarchivedObjectOfClasses(
              {&NSTextAttachment::classObject(), &NSFileWrapper::classObject()}, data->bytes, classes, &error)
              .mutableObject<FlaggedAttachment>();
    ASSERT_TRUE(back) << error.localizedDescription();
    EXPECT_TRUE(back->flag);
    EXPECT_EQ(back->fileType(), u"com.adobe.pdf");
    EXPECT_FALSE(back->isExactly<NSTextAttachment>());
    EXPECT_NE(std::dynamic_pointer_cast<FlaggedAttachment>(back->makeOfSameClass()), nullptr);
}
