#include "platform/foundation/NSPasteboard.h"

#include <gmock/gmock.h>

#include <array>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::u16string_view kBytesType = u"com.example.bytes";

/// Copies as bytes and as text, or as nothing at all.
class Copied final : public NSPasteboardWriting {
public:
    explicit Copied(bool hasForms)
        : m_hasForms(hasForms)
    {
    }

    [[nodiscard]] std::vector<std::u16string> writableTypesForPasteboard() const override
    {
        return {std::u16string(kBytesType), std::u16string(NSPasteboardTypeString), u"com.example.none"};
    }

    [[nodiscard]] NSAny pasteboardPropertyListForType(std::u16string_view type) const override
    {
        if (!m_hasForms)
            return {};
        if (type == kBytesType)
            return NSData{"bytes"};
        return type == NSPasteboardTypeString ? NSAny(u"text") : NSAny();
    }

private:
    bool m_hasForms;
};

NSPasteboard boardWith(std::shared_ptr<const NSPasteboardWriting> object)
{
    NSPasteboard board;
    const std::array objects{std::move(object)};
    board.writeObjects(objects);
    return board;
}

NSAny nothing(const NSAny& /*propertyList*/, std::u16string_view /*ofType*/)
{
    return {};
}

NSAny itself(const NSAny& propertyList, std::u16string_view /*ofType*/)
{
    return propertyList;
}

} // namespace

TEST(NSPasteboard, KeepsTheFormsOfAnObjectInTheirOrder)
{
    const auto board = boardWith(std::make_shared<Copied>(true));
    ASSERT_EQ(board.pasteboardItems().size(), 1U);
    const auto& item = board.pasteboardItems().front();
    EXPECT_THAT(item.types(), ElementsAre(kBytesType, NSPasteboardTypeString));
    EXPECT_EQ(item.propertyListForType(kBytesType), NSAny(NSData{"bytes"}));
    EXPECT_TRUE(item.propertyListForType(u"com.example.none").isNil());
}

TEST(NSPasteboard, TakesNoObjectWithoutForms)
{
    NSPasteboard board;
    const std::array<std::shared_ptr<const NSPasteboardWriting>, 1> objects{std::make_shared<Copied>(false)};
    EXPECT_FALSE(board.writeObjects(objects));
    EXPECT_THAT(board.pasteboardItems(), IsEmpty());
}

TEST(NSPasteboard, AddsToWhatIsThereUntilItIsCleared)
{
    auto board = boardWith(std::make_shared<Copied>(true));
    const std::array<std::shared_ptr<const NSPasteboardWriting>, 1> objects{std::make_shared<Copied>(true)};
    EXPECT_TRUE(board.writeObjects(objects));
    EXPECT_EQ(board.pasteboardItems().size(), 2U);
    board.clearContents();
    EXPECT_THAT(board.pasteboardItems(), IsEmpty());
}

TEST(NSPasteboardItem, GivesTextsAndBytesForEachOther)
{
    NSPasteboardItem item;
    item.setPropertyList(u"é", u"text");
    item.setPropertyList(NSData{"\xC3\xA9"}, u"bytes");
    item.setPropertyList(7, u"number");
    EXPECT_EQ(item.dataForType(u"text"), NSData{"\xC3\xA9"});
    EXPECT_EQ(item.stringForType(u"bytes"), u"é");
    EXPECT_EQ(item.stringForType(u"number"), std::nullopt);
    EXPECT_EQ(item.dataForType(u"number"), std::nullopt);
    EXPECT_EQ(item.stringForType(u"absent"), std::nullopt);
}

TEST(NSPasteboardItem, HasOneFormOfAType)
{
    NSPasteboardItem item;
    item.setPropertyList(u"one", u"text");
    item.setPropertyList(u"two", u"text");
    EXPECT_THAT(item.types(), ElementsAre(u"text"));
    EXPECT_EQ(item.stringForType(u"text"), u"two");
}

TEST(NSPasteboard, ReadsEachItemByTheFirstClassThatMakesAnObjectOfIt)
{
    const auto board = boardWith(std::make_shared<Copied>(true));
    const std::array<NSPasteboardReading, 4> classes{{
        {{u"com.example.other"}, &itself},
        {{std::u16string(kBytesType)}, &nothing},
        {{u"com.example.other", std::u16string(NSPasteboardTypeString)}, &itself},
        {{std::u16string(kBytesType)}, &itself},
    }};
    EXPECT_THAT(board.readObjectsForClasses(classes), ElementsAre(NSAny(u"text")));
    EXPECT_THAT(board.readObjectsForClasses(std::span(classes).first(2)), IsEmpty());
}
