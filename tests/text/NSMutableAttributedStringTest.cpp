#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

/// A text kept the simplest way there is: one set of attributes for each unit.
class UnitByUnit {
public:
    struct Unit {
        char16_t character = 0;
        NSAttributes attributes;

        friend bool operator==(const Unit&, const Unit&) = default;
    };

    void replace(NSRange range, std::u16string_view string)
    {
        NSAttributes attributes;
        if (!m_units.empty()) {
            const auto model = range.length == 0 && range.location > 0 ? range.location - 1 : range.location;
            attributes = m_units[model].attributes;
        }
        std::vector<Unit> units;
        for (const auto character : string)
            units.push_back({character, attributes});
        replace(range, units);
    }

    void replace(NSRange range, const std::vector<Unit>& units)
    {
        const auto start = m_units.begin() + static_cast<std::ptrdiff_t>(range.location);
        const auto at = m_units.erase(start, start + static_cast<std::ptrdiff_t>(range.length));
        m_units.insert(at, units.begin(), units.end());
    }

    template <typename Edit> void edit(NSRange range, Edit edit)
    {
        for (auto index = range.location; index < NSMaxRange(range); ++index)
            edit(m_units[index].attributes);
    }

    [[nodiscard]] const std::vector<Unit>& units() const { return m_units; }

private:
    std::vector<Unit> m_units;
};

std::vector<UnitByUnit::Unit> unitsOf(const NSAttributedString& text)
{
    std::vector<UnitByUnit::Unit> units;
    for (NSUInteger index = 0; index < text.length(); ++index)
        units.push_back({text.characterAtIndex(index), text.attributesAtIndex(index)});
    return units;
}

/// Runs cover the text without gaps, and neighbours differ.
void expectSoundRuns(const NSAttributedString& text)
{
    NSUInteger covered = 0;
    NSUInteger runs = 0;
    NSAttributes before{{u"no text has this", true}};
    text.enumerateAttributesInRange({0, text.length()}, {},
                                    [&](const NSAttributes& attributes, NSRange range, bool& /*stop*/) {
                                        EXPECT_EQ(range.location, covered);
                                        EXPECT_NE(attributes, before);
                                        covered = NSMaxRange(range);
                                        before = attributes;
                                        ++runs;
                                    });
    EXPECT_EQ(covered, text.length());
    EXPECT_EQ(runs, text.runCount());
}

class RandomEdits {
public:
    explicit RandomEdits(unsigned seed)
        : m_random(seed)
    {
    }

    void apply(NSMutableAttributedString& text, UnitByUnit& model)
    {
        const auto start = upTo(text.length());
        const NSRange range{start, upTo(std::min<NSUInteger>(text.length() - start, 12))};
        const std::u16string name(1, static_cast<char16_t>(u'A' + upTo(2)));
        const NSAny value(upTo(2));
        switch (upTo(5)) {
        case 0: {
            const std::u16string string(upTo(9), static_cast<char16_t>(u'a' + upTo(25)));
            text.replaceCharactersInRange(range, string);
            model.replace(range, string);
            return;
        }
        case 1:
            text.addAttribute(name, value, range);
            model.edit(range, [&](NSAttributes& attributes) { attributes.insert_or_assign(name, value); });
            return;
        case 2:
            text.removeAttribute(name, range);
            model.edit(range, [&](NSAttributes& attributes) { attributes.erase(name); });
            return;
        case 3:
            text.setAttributes({{name, value}}, range);
            model.edit(range, [&](NSAttributes& attributes) { attributes = {{name, value}}; });
            return;
        default:
            replaceByPart(text, model, range);
        }
    }

private:
    std::size_t upTo(std::size_t bound)
    {
        return std::uniform_int_distribution<std::size_t>(0, bound)(m_random);
    }

    void replaceByPart(NSMutableAttributedString& text, UnitByUnit& model, NSRange range)
    {
        const auto start = upTo(text.length());
        const auto part = text.attributedSubstringFromRange(
            {start, upTo(std::min<NSUInteger>(text.length() - start, 9))});
        text.replaceCharactersInRange(range, part);
        model.replace(range, unitsOf(part));
    }

    std::mt19937 m_random;
};

} // namespace

TEST(NSMutableAttributedString, NewCharactersTakeTheAttributesOfTheFirstReplaced)
{
    NSMutableAttributedString text(u"ab");
    text.addAttribute(u"A", 1, {0, 1});
    text.addAttribute(u"A", 2, {1, 1});
    text.replaceCharactersInRange({0, 2}, u"xyz");
    EXPECT_EQ(text.attribute(u"A", 2), NSAny(1));
    EXPECT_EQ(text.runCount(), 1U);
}

TEST(NSMutableAttributedString, InsertedCharactersTakeTheAttributesOfTheOneBefore)
{
    NSMutableAttributedString text(u"ab");
    text.addAttribute(u"A", 1, {0, 1});
    text.addAttribute(u"A", 2, {1, 1});
    text.replaceCharactersInRange({1, 0}, u"x");
    text.replaceCharactersInRange({0, 0}, u"y");
    text.replaceCharactersInRange({4, 0}, u"z");
    EXPECT_EQ(text.string(), u"yaxbz");
    EXPECT_EQ(text.attribute(u"A", 0), NSAny(1));
    EXPECT_EQ(text.attribute(u"A", 2), NSAny(1));
    EXPECT_EQ(text.attribute(u"A", 4), NSAny(2));
}

TEST(NSMutableAttributedString, TextInsertedBringsItsOwnAttributes)
{
    NSMutableAttributedString text(u"ab", {{u"A", 1}});
    text.insertAttributedString(NSAttributedString(u"x"), 1);
    text.appendAttributedString(NSAttributedString(u"y", {{u"A", 1}}));
    EXPECT_EQ(text.string(), u"axby");
    EXPECT_TRUE(text.attribute(u"A", 1).isNil());
    EXPECT_EQ(text.runCount(), 3U);
    text.insertAttributedString(text, 2);
    EXPECT_EQ(text.string(), u"axaxbyby");
}

TEST(NSMutableAttributedString, EqualNeighboursBecomeOneRun)
{
    NSMutableAttributedString text(u"0123456789");
    for (NSUInteger index = 0; index < 10; index += 2)
        text.addAttribute(u"A", 1, {index, 1});
    EXPECT_EQ(text.runCount(), 10U);
    for (NSUInteger index = 1; index < 10; index += 2)
        text.addAttribute(u"A", 1, {index, 1});
    EXPECT_EQ(text.runCount(), 1U);
    text.deleteCharactersInRange({0, 10});
    EXPECT_EQ(text.runCount(), 0U);
    EXPECT_EQ(text, NSAttributedString());
}

TEST(NSMutableAttributedString, RangesBehindTheEndAreCut)
{
    NSMutableAttributedString text(u"ab");
    text.addAttribute(u"A", 1, {1, NSNotFound});
    text.addAttribute(u"A", 2, {7, 3});
    text.replaceCharactersInRange({NSNotFound, 4}, u"c");
    EXPECT_EQ(text.string(), u"abc");
    EXPECT_EQ(text.attribute(u"A", 2), NSAny(1));
}

TEST(NSMutableAttributedString, MayBeChangedByAVisitorWithinItsRun)
{
    NSMutableAttributedString text(u"a1b2c3");
    for (NSUInteger index = 1; index < 6; index += 2)
        text.addAttribute(u"A", index, {index, 1});
    std::vector<NSRange> visited;
    text.enumerateAttribute(u"A", [&](const NSAny& value, NSRange range, bool& /*stop*/) {
        visited.push_back(range);
        if (value.integerValue() == 1)
            text.replaceCharactersInRange(range, u"[one]");
        else if (value.integerValue() == 3)
            text.deleteCharactersInRange(range);
        else if (value)
            text.removeAttribute(u"A", range);
    });
    EXPECT_EQ(text.string(), u"a[one]bc3");
    const std::vector<NSRange> expected{{0, 1}, {1, 1}, {6, 1}, {7, 1}, {7, 1}, {8, 1}};
    EXPECT_EQ(visited, expected);
}

TEST(NSMutableAttributedString, MayBeChangedByAVisitorInReverse)
{
    NSMutableAttributedString text(u"a1b2");
    text.addAttribute(u"A", 1, {1, 1});
    text.addAttribute(u"A", 2, {3, 1});
    text.enumerateAttribute(u"A", {0, 4}, {.reverse = true},
                            [&text](const NSAny& value, NSRange range, bool& /*stop*/) {
                                if (value)
                                    text.replaceCharactersInRange(range, u"<<>>");
                                else
                                    text.deleteCharactersInRange(range);
                            });
    EXPECT_EQ(text.string(), u"<<>><<>>");
    EXPECT_EQ(text.attribute(u"A", 5), NSAny(2));
}

TEST(NSMutableAttributedString, AVisitorMayDeleteEverything)
{
    NSMutableAttributedString text(u"abc");
    text.addAttribute(u"A", 1, {1, 1});
    int visits = 0;
    text.enumerateAttribute(u"A", [&](const NSAny&, NSRange, bool&) {
        ++visits;
        text.deleteCharactersInRange({0, text.length()});
    });
    EXPECT_EQ(visits, 1);
    EXPECT_EQ(text.length(), 0U);
}

TEST(NSMutableAttributedString, AgreesWithOneSetOfAttributesForEachUnit)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        RandomEdits edits(seed);
        NSMutableAttributedString text;
        UnitByUnit model;
        for (int step = 0; step < 150; ++step) {
            edits.apply(text, model);
            ASSERT_EQ(unitsOf(text), model.units()) << "seed " << seed << ", step " << step;
        }
        expectSoundRuns(text);
    }
}

TEST(NSMutableAttributedString, AttachmentsStayOnTheirCharacterOnly)
{
    NSMutableAttributedString text(u"ab\uFFFCc\uFFFC\uFFFC",
                                   {{std::u16string(NSAttachmentAttributeName), 1}});
    text.fixAttachmentAttributeInRange({0, 6});
    std::u16string marks;
    for (NSUInteger index = 0; index < text.length(); ++index)
        marks += text.attribute(NSAttachmentAttributeName, index) ? u'x' : u'-';
    EXPECT_EQ(marks, u"--x-xx");
}

TEST(NSMutableAttributedString, AParagraphTakesTheStyleOfItsFirstCharacter)
{
    NSMutableAttributedString text(u"one\ntwo\nthree");
    text.addAttribute(NSParagraphStyleAttributeName, 1, {0, 2});
    text.addAttribute(NSParagraphStyleAttributeName, 2, {5, 8});
    text.fixParagraphStyleAttributeInRange({6, 0});
    EXPECT_TRUE(text.attribute(NSParagraphStyleAttributeName, 5).isNil());
    EXPECT_TRUE(text.attribute(NSParagraphStyleAttributeName, 3).isNil());
    text.fixParagraphStyleAttributeInRange({0, 13});
    EXPECT_EQ(text.attribute(NSParagraphStyleAttributeName, 3), NSAny(1));
    EXPECT_EQ(text.attribute(NSParagraphStyleAttributeName, 12), NSAny(2));
}

TEST(NSMutableAttributedString, FixesWhatABatchOfEditsTouchedWhenItEnds)
{
    NSMutableAttributedString text(u"\uFFFCa\uFFFCb", {{std::u16string(NSAttachmentAttributeName), 1}});
    text.beginEditing();
    text.beginEditing();
    text.replaceCharactersInRange({2, 1}, u"xyz");
    text.endEditing();
    EXPECT_EQ(text.attribute(NSAttachmentAttributeName, 3), NSAny(1));
    text.replaceCharactersInRange({0, 0}, u"..");
    text.endEditing();
    EXPECT_TRUE(text.attribute(NSAttachmentAttributeName, 0).isNil());
    EXPECT_EQ(text.attribute(NSAttachmentAttributeName, 2), NSAny(1));
    for (NSUInteger index = 3; index < 7; ++index)
        EXPECT_TRUE(text.attribute(NSAttachmentAttributeName, index).isNil()) << index;
    // Behind the edits nothing was touched.
    EXPECT_EQ(text.attribute(NSAttachmentAttributeName, 7), NSAny(1));
    text.endEditing();
}

TEST(NSMutableAttributedString, KeepsTheParagraphStylesThatABatchOfEditsSet)
{
    NSMutableAttributedString text(u"one\ntwo\nthree");
    text.addAttribute(NSParagraphStyleAttributeName, 1, {5, 1});
    text.beginEditing();
    text.addAttribute(NSParagraphStyleAttributeName, 2, {0, 3});
    text.addAttribute(NSParagraphStyleAttributeName, 3, {8, 2});
    const auto edited = text.copy();
    text.endEditing();
    EXPECT_EQ(text, edited);
}
