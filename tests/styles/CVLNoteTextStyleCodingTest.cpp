#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "styles/StyleClasses.h"
#include "tests/styles/StyleTest.h"

#include <gmock/gmock.h>

using testing::UnorderedElementsAre;

namespace {

using Type = CVLNoteTextStyleType;

std::string archived(const CVLNoteTextStyle::Ref& style)
{
    NSError error;
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(style, true, &error);
    EXPECT_TRUE(data) << error.localizedDescription();
    return data ? data->bytes : std::string();
}

CVLNoteTextStyle::Ref unarchived(std::string_view bytes, NSError* error = nullptr)
{
    return NSKeyedUnarchiver::unarchivedObjectOfClass(CVLNoteTextStyle::classObject(), bytes, styleClasses(),
                                                      error)
        .mutableObject<CVLNoteTextStyle>();
}

/// The dictionary of the archive's style, whose values are plain or references into the archive.
NSAny::Dictionary archivedValues(const std::string& bytes)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(bytes);
    for (const auto& object : *list.dictionary()->at(u"$objects").array())
        if (const auto* dictionary = object.dictionary();
            dictionary && dictionary->contains(u"resetOnNewLine"))
            return *dictionary;
    return {};
}

/// The archive with another value in its style.
std::string withValue(const std::string& bytes, std::u16string_view name, const NSAny& value)
{
    auto list = *NSPropertyListSerialization::propertyListWithData(bytes).dictionary();
    auto objects = *list.at(u"$objects").array();
    for (auto& object : objects) {
        const auto* dictionary = object.dictionary();
        if (!dictionary || !dictionary->contains(u"resetOnNewLine"))
            continue;
        auto changed = *dictionary;
        changed.insert_or_assign(std::u16string(name), value);
        object = changed;
    }
    list[u"$objects"] = objects;
    return NSPropertyListSerialization::dataWithPropertyList(list, NSPropertyListFormat::Binary)
        .value()
        .bytes;
}

CVLNoteTextStyle::Ref quoteStyle()
{
    auto style = std::make_shared<CVLNoteTextStyle>();
    style->setType(Type::Custom);
    style->setName(u"Quote \u201EZitat\u201C");
    style->setFont(NSFont::fontWithName(u"Menlo-Regular", 10.5));
    auto paragraphStyle = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    paragraphStyle.setHeadIndent(18);
    style->setParagraphStyle(paragraphStyle.copy());
    style->setForegroundColor(NSColor::colorWithRed(0.25, 0.5, 0.75, 1));
    style->setUnderlineStyle(9);
    style->setStrikethrough(1);
    style->setResetOnNewLine(true);
    style->setApplyToParagraph(true);
    return style;
}

class CVLNoteTextStyleCoding : public StyleTest { };

TEST_F(CVLNoteTextStyleCoding, ComesBackAsItWas)
{
    const auto style = quoteStyle();
    const auto read = unarchived(archived(style));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->type(), Type::Custom);
    EXPECT_EQ(read->name(), style->name());
    EXPECT_TRUE(read->font()->isEqual(*style->font()));
    EXPECT_TRUE(read->paragraphStyle()->isEqual(*style->paragraphStyle()));
    EXPECT_TRUE(read->foregroundColor()->isEqual(*style->foregroundColor()));
    EXPECT_EQ(read->underlineStyle(), 9);
    EXPECT_EQ(read->strikethrough(), 1);
    EXPECT_TRUE(read->resetOnNewLine());
    EXPECT_TRUE(read->applyToParagraph());
    EXPECT_EQ(read->customStyleIdentifier(), style->customStyleIdentifier());
    EXPECT_TRUE(read->matchesStyle(*style));
}

TEST_F(CVLNoteTextStyleCoding, KeepsEveryStandardStyle)
{
    for (const auto& style : CVLNoteTextStyle::standardStyles()) {
        const auto read = unarchived(archived(style));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->type(), style->type());
        EXPECT_TRUE(read->matchesStyle(*style));
        EXPECT_EQ(read->applyToParagraph(), style->applyToParagraph());
        EXPECT_EQ(read->resetOnNewLine(), style->resetOnNewLine());
    }
}

TEST_F(CVLNoteTextStyleCoding, WritesExactlyTheseKeys)
{
    const auto values = archivedValues(archived(quoteStyle()));
    std::vector<std::u16string> keys;
    for (const auto& [name, value] : values)
        if (name != u"$class")
            keys.push_back(name);
    EXPECT_THAT(keys,
                UnorderedElementsAre(u"type", u"name", u"fontName", u"fontSize", u"paragraphStyle",
                                     u"underlineStyle", u"strikethrough", u"foregroundColor",
                                     u"resetOnNewLine", u"applyToParagraph", u"customStyleIdentifier"));
    EXPECT_EQ(values.at(u"type"), NSAny(9999));
    EXPECT_EQ(values.at(u"fontSize"), NSAny(10.5));
    EXPECT_EQ(values.at(u"underlineStyle"), NSAny(9));
    EXPECT_EQ(values.at(u"strikethrough"), NSAny(1));
    EXPECT_EQ(values.at(u"resetOnNewLine"), NSAny(true));
}

/// The archived colour, as the references in its dictionary resolve.
std::map<std::u16string, double> archivedColor(const std::string& bytes)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(bytes);
    const auto& objects = *list.dictionary()->at(u"$objects").array();
    const auto resolved = [&objects](const NSAny& reference) {
        return objects.at(reference.object<NSKeyedArchiverUID>()->value());
    };
    const auto color = resolved(archivedValues(bytes).at(u"foregroundColor"));
    std::map<std::u16string, double> components;
    const auto& keys = *color.dictionary()->at(u"NS.keys").array();
    const auto& values = *color.dictionary()->at(u"NS.objects").array();
    for (std::size_t index = 0; index < keys.size(); ++index)
        components[*resolved(keys[index]).string()] = resolved(values[index]).doubleValue();
    return components;
}

TEST_F(CVLNoteTextStyleCoding, WritesTheTextColourInPlaceOfBlackAndWhite)
{
    // White would be all ones. The text colour of the light appearance is black.
    const std::map<std::u16string, double> textColor
        = {{u"red", 0}, {u"green", 0}, {u"blue", 0}, {u"alpha", 1}};
    for (const auto& color : {NSColor::whiteColor(), NSColor::blackColor(), NSColor::Ref()}) {
        const auto style = quoteStyle();
        style->setForegroundColor(color);
        EXPECT_EQ(archivedColor(archived(style)), textColor);
        const auto read = unarchived(archived(style));
        ASSERT_TRUE(read);
        EXPECT_TRUE(read->foregroundColor()->isEqual(*NSColor::textColor()));
    }
}

TEST_F(CVLNoteTextStyleCoding, TakesItsStandardFontWhereTheArchivedOneIsUnknown)
{
    const NSAny missing = std::make_shared<const NSKeyedArchiverUID>(0U);
    ASSERT_FALSE(NSFont::fontWithName(u"Menlo-Rogulor", 12));
    const std::vector<std::pair<Type, CVLNoteTextStyle::Ref>> rows = {
        {Type::Custom, CVLNoteTextStyle::defaultBodyNoteTextStyle()},
        {Type::Body, CVLNoteTextStyle::defaultBodyNoteTextStyle()},
        {Type::Title, CVLNoteTextStyle::defaultTitleNoteTextStyle()},
        {Type::Heading, CVLNoteTextStyle::defaultHeadingNoteTextStyle()},
        {Type::Subheading, CVLNoteTextStyle::defaultSubheadingNoteTextStyle()},
        {Type::Monospaced, CVLNoteTextStyle::defaultMonospacedNoteTextStyle()},
    };
    for (const auto& [type, standard] : rows) {
        const auto style = quoteStyle();
        style->setType(type);
        auto unknown = archived(style);
        unknown.replace(unknown.find("Menlo-Regular"), 13, "Menlo-Rogulor");
        for (const auto& bytes : {withValue(archived(style), u"fontName", missing), unknown}) {
            const auto read = unarchived(bytes);
            ASSERT_TRUE(read);
            EXPECT_TRUE(read->font()->isEqual(*standard->font()));
        }
    }
}

TEST_F(CVLNoteTextStyleCoding, ReadsTypesOfTheFutureAsCustom)
{
    const auto read = unarchived(withValue(archived(quoteStyle()), u"type", 7));
    ASSERT_TRUE(read);
    EXPECT_EQ(static_cast<int>(read->type()), 7);
    EXPECT_EQ(read->name(), quoteStyle()->name());
}

TEST_F(CVLNoteTextStyleCoding, SurvivesHostileNumbers)
{
    for (const NSAny& size : {NSAny(-3.0), NSAny(1e300), NSAny(u"twelve"), NSAny(0)}) {
        const auto read = unarchived(withValue(archived(quoteStyle()), u"fontSize", size));
        EXPECT_TRUE(!read || read->fontSize() > 0);
    }
}

TEST_F(CVLNoteTextStyleCoding, RefusesOtherObjectsUnderItsKeys)
{
    const auto bytes = archived(quoteStyle());
    const auto values = archivedValues(bytes);
    NSError error;
    EXPECT_FALSE(unarchived(withValue(bytes, u"paragraphStyle", values.at(u"name")), &error));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_FALSE(unarchived(withValue(bytes, u"name", values.at(u"foregroundColor"))));
    EXPECT_FALSE(unarchived(withValue(bytes, u"foregroundColor", values.at(u"paragraphStyle"))));
}

TEST_F(CVLNoteTextStyleCoding, SurvivesEveryTruncation)
{
    const auto bytes = archived(quoteStyle());
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(unarchived(bytes.substr(0, length))) << length;
}

} // namespace
