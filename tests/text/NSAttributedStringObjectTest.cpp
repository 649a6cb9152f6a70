#include "platform/text/NSAttributedStringObject.h"

#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/TextClasses.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

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
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(archive, textClasses(), error);
    if (!unarchiver)
        return nullptr;
    unarchiver->setRequiresSecureCoding(false);
    return unarchiver
        ->decodeTopLevelObjectOfClasses({&NSAttributedStringObject::classObject()},
                                        NSKeyedArchiveRootObjectKey, error)
        .object<NSAttributedStringObject>();
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

TEST(NSAttributedStringObject, ReadsEveryKindOfAttributeWithSecureCoding)
{
    NSMutableAttributedString text(u"link, font, colour, style");
    const auto set = [&text](std::u16string_view name, const NSAny& value, NSUInteger location) {
        text.addAttribute(name, value, {location, 4});
    };
    set(NSLinkAttributeName, *NSURL::URLWithString("https://example.org/a"), 0);
    set(NSFontAttributeName, NSFont::fontWithName(u"Menlo-Regular", 11), 6);
    set(NSForegroundColorAttributeName, NSColor::textColor(), 12);
    set(NSParagraphStyleAttributeName, NSParagraphStyle::defaultParagraphStyle(), 20);
    set(u"Own", NSAny::Array{1, 2.5, true, NSAny::Dictionary{{u"key", NSData{"bytes"}}}}, 9);
    NSError error;
    const auto read = NSKeyedUnarchiver::unarchivedObjectOfClass(
        NSAttributedStringObject::mutableClassObject(), archiveOf(text), textClasses(), &error);
    ASSERT_TRUE(read) << error.localizedDescription();
    EXPECT_EQ(read.object<NSAttributedStringObject>()->text(), text);
}

TEST(NSAttributedStringObject, EqualsByItsText)
{
    const NSAttributedStringObject one(withRuns());
    const NSAttributedStringObject other(withRuns(), NSAttributedStringObject::Form::Mutable);
    EXPECT_TRUE(one.isEqual(other));
    EXPECT_EQ(one.hash(), other.hash());
    EXPECT_FALSE(one.isEqual(NSAttributedStringObject(NSAttributedString(u"x"))));
}
