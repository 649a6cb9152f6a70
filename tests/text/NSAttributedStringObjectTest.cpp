#include "platform/text/NSAttributedStringObject.h"

#include "platform/foundation/FoundationClasses.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

namespace {

const NSClassTable& classes()
{
    static const NSClassTable table(foundationClasses(),
                                    {&NSAttributedStringObject::classObject(),
                                     &NSAttributedStringObject::mutableClassObject(),
                                     &NSAttributedStringObject::textStorageClassObject()});
    return table;
}

std::string archiveOf(const NSAttributedString& text,
                      NSAttributedStringObject::Form form = NSAttributedStringObject::Form::Mutable)
{
    NSError error;
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const NSAttributedStringObject>(text, form), false, &error);
    EXPECT_TRUE(data) << error.localizedDescription();
    return data ? data->bytes : std::string();
}

std::shared_ptr<const NSAttributedStringObject> unarchived(std::string_view archive, NSError* error = nullptr)
{
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(archive, classes(), error);
    if (!unarchiver)
        return nullptr;
    unarchiver->setRequiresSecureCoding(false);
    return unarchiver
        ->decodeTopLevelObjectOfClasses({&NSAttributedStringObject::classObject()},
                                        NSKeyedArchiveRootObjectKey, error)
        .object<NSAttributedStringObject>();
}

std::string bytesOfSample(const std::string& name)
{
    std::ifstream file(std::filesystem::path(CORVEL_SAMPLES_DIR) / "keyed" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

NSAttributedString withRuns()
{
    NSMutableAttributedString text(u"Zwölf Boxkämpfer 🥊");
    text.addAttribute(u"Mark", u"first", {0, 5});
    text.addAttribute(u"Mark", u"second", {6, 10});
    text.addAttribute(u"Number", 2.5, {3, 9});
    return text;
}

} // namespace

TEST(NSAttributedStringObject, ReadsBackWhatItWrote)
{
    for (const auto& text : {NSAttributedString(), NSAttributedString(u"plain"),
                             NSAttributedString(u"one run", {{u"A", 1}}), withRuns()}) {
        NSError error;
        const auto read = unarchived(archiveOf(text), &error);
        ASSERT_TRUE(read) << error.localizedDescription();
        EXPECT_EQ(read->text(), text);
        EXPECT_EQ(&read->classForCoder(), &NSAttributedStringObject::mutableClassObject());
    }
}

TEST(NSAttributedStringObject, KeepsItsForm)
{
    const auto read = unarchived(archiveOf(withRuns(), NSAttributedStringObject::Form::Immutable));
    ASSERT_TRUE(read);
    EXPECT_EQ(&read->classForCoder(), &NSAttributedStringObject::classObject());
    EXPECT_EQ(read->text(), withRuns());
}

TEST(NSAttributedStringObject, LeavesAttributesOutOfAnEmptyTextAndTheTableOutOfASingleRun)
{
    NSError error;
    const auto keysOf = [&error](const NSAttributedString& text) {
        std::vector<std::u16string> keys;
        const auto archive = NSPropertyListSerialization::propertyListWithData(archiveOf(text), &error);
        const auto& objects = *archive.dictionary()->at(u"$objects").array();
        for (const auto& [key, value] : *objects[1].dictionary())
            keys.push_back(key);
        return keys;
    };
    using Keys = std::vector<std::u16string>;
    EXPECT_EQ(keysOf(NSAttributedString()), (Keys{u"$class", u"NSString"}));
    EXPECT_EQ(keysOf(NSAttributedString(u"a")), (Keys{u"$class", u"NSAttributes", u"NSString"}));
    EXPECT_EQ(keysOf(withRuns()), (Keys{u"$class", u"NSAttributeInfo", u"NSAttributes", u"NSString"}));
}

TEST(NSAttributedStringObject, ReadsTheRunsOfAPlatformArchive)
{
    const auto archive = bytesOfSample("NSAttributedString.archive");
    if (archive.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
    NSError error;
    const auto read = unarchived(archive, &error);
    ASSERT_TRUE(read) << error.localizedDescription();
    NSMutableAttributedString expected(u"0123456789");
    const NSAttributes helvetica{{u"Font", u"Helvetica"}, {u"Size", 123}};
    const NSAttributes times{{u"Font", u"Times"}, {u"Size", 456}};
    expected.setAttributes(helvetica, {1, 1});
    expected.setAttributes(times, {2, 4});
    expected.setAttributes(helvetica, {6, 2});
    expected.setAttributes(times, {8, 1});
    EXPECT_EQ(read->text(), expected);
}

TEST(NSAttributedStringObject, EqualsByItsText)
{
    const NSAttributedStringObject one(withRuns());
    const NSAttributedStringObject other(withRuns(), NSAttributedStringObject::Form::Mutable);
    EXPECT_TRUE(one.isEqual(other));
    EXPECT_EQ(one.hash(), other.hash());
    EXPECT_FALSE(one.isEqual(NSAttributedStringObject(NSAttributedString(u"x"))));
}
