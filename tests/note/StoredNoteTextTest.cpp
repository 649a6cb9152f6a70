#include "note/StoredNoteText.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/HighlightColours.h"
#include "tests/note/NotePackages.h"
#include "tests/support/PropertyListBytes.h"

#include <gmock/gmock.h>

#include <random>

using testing::HasSubstr;

namespace {

const std::u16string kBackground(NSBackgroundColorAttributeName);
const std::u16string kForeground(NSForegroundColorAttributeName);
const std::u16string kHighlight(CVLHighlightTextAttributeName);
const std::u16string kAttachment(NSAttachmentAttributeName);

class StoredNoteText : public StyleTest {
protected:
    static NSMutableAttributedString withDividers(std::u16string_view characters,
                                                  const std::vector<NSRange>& ranges)
    {
        NSMutableAttributedString text{std::u16string(characters)};
        restoreDividers(text, ranges);
        return text;
    }

    static NSMutableAttributedString highlighted(NSMutableAttributedString text, bool usesColorTypes)
    {
        restoreHighlights(text, usesColorTypes);
        return text;
    }
};

NSError errorOf(std::string_view archive)
{
    const LogLines log;
    NSError error;
    EXPECT_FALSE(unarchivedNoteText(archive, error));
    EXPECT_THAT(log.text(), HasSubstr("Could not decode note text: " + error.localizedDescription()));
    return error;
}

} // namespace

TEST_F(StoredNoteText, ComesBackFromItsArchive)
{
    auto text = NoteText().add(u"a", {{kForeground, NSColor::redColor()}}).add(u"b\u00E9\U0001F600");
    NSError error;
    const auto read = unarchivedNoteText(archivedText(text.text()), error);
    ASSERT_TRUE(read) << error.localizedDescription();
    EXPECT_EQ(*read, text.text());
}

TEST_F(StoredNoteText, ComesBackFromAnArchiveOfATextThatCannotBeChanged)
{
    const NSAttributedString text(u"text", {{kForeground, NSColor::redColor()}});
    const auto archive = NSKeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const NSAttributedStringObject>(text), false);
    NSError error;
    EXPECT_EQ(unarchivedNoteText(archive.value().bytes, error), NSMutableAttributedString(text));
}

TEST_F(StoredNoteText, HasAttachmentsOfTheirClasses)
{
    auto file = CVLFileAttachment::initWithFileWrapper(placeholderNamed(u"a.zip"));
    file->setConvertToInPlaceOnMac(true);
    const auto text = NoteText()
                          .addAttachment(NSTextAttachment::initWithFileWrapper(placeholderNamed(u"a.png")))
                          .addAttachment(file)
                          .addAttachment(makeBox(true, 3))
                          .text();
    NSError error;
    const auto read = unarchivedNoteText(archivedText(text), error);
    ASSERT_TRUE(read) << error.localizedDescription();
    EXPECT_TRUE(isAttachment<NSTextAttachment>(*read, 0));
    EXPECT_EQ(attachmentAt(*read, 0)->fileWrapper()->preferredFilename(), u"a.png");
    const auto readFile = read->attribute(kAttachment, 1).object<CVLFileAttachment>();
    ASSERT_TRUE(readFile);
    EXPECT_TRUE(readFile->convertToInPlaceOnMac());
    const auto box = read->attribute(kAttachment, 2).object<CVLChecklistTextAttachment>();
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isOn());
    EXPECT_EQ(box->indentationLevel(), 3U);
}

TEST_F(StoredNoteText, IsNotReadFromWhatIsNoArchive)
{
    for (const auto* bytes : {"", "no archive", "bplist00"})
        EXPECT_EQ(errorOf(bytes).code(), static_cast<int>(NSCocoaError::CoderReadCorrupt)) << bytes;
}

TEST_F(StoredNoteText, IsNotReadFromAnArchiveOfSomethingElse)
{
    const auto archive = NSKeyedArchiver::archivedDataWithRootObject(makeBox(true), false).value().bytes;
    EXPECT_EQ(errorOf(archive).code(), static_cast<int>(NSCocoaError::CoderReadCorrupt));
    EXPECT_EQ(errorOf(archiveBytes({u"text"})).domain(), NSCocoaErrorDomain);
}

TEST_F(StoredNoteText, IsNotReadFromAnArchiveThatIsCutAnywhere)
{
    const auto archive = archivedText(NoteText().add(u"text", withFont(u"Menlo-Regular", 12)).text());
    for (std::size_t length = 0; length < archive.size(); ++length)
        EXPECT_FALSE(errorOf(std::string_view(archive).substr(0, length)).domain().empty()) << length;
}

TEST_F(StoredNoteText, IsNotReadFromAnArchiveInACircle)
{
    const auto archive
        = archiveBytes({NSAny::Dictionary{{u"NSString", archiveUID(1)}, {u"$class", archiveUID(2)}},
                        archiveClass({u"NSMutableAttributedString", u"NSAttributedString", u"NSObject"})});
    EXPECT_EQ(errorOf(archive).code(), static_cast<int>(NSCocoaError::CoderReadCorrupt));
}

TEST_F(StoredNoteText, LosesWhiteBackgroundsOnly)
{
    auto text = NoteText()
                    .add(u"a", {{kBackground, NSColor::whiteColor()}, {kForeground, NSColor::redColor()}})
                    .add(u"b", {{kBackground, NSColor::colorWithDeviceRed(1, 1, 1, 1)}})
                    .add(u"c", {{kBackground, NSColor::yellowColor()}})
                    .add(u"d")
                    .add(u"e", {{kBackground, u"white"}})
                    .text();
    removeWhiteBackgrounds(text);
    const auto expected = NoteText()
                              .add(u"a", {{kForeground, NSColor::redColor()}})
                              .add(u"b")
                              .add(u"c", {{kBackground, NSColor::yellowColor()}})
                              .add(u"d")
                              .add(u"e", {{kBackground, u"white"}});
    EXPECT_EQ(text, expected.text());
}

TEST_F(StoredNoteText, HasItsChecklistParagraphsInTheStyleOfTheBoxes)
{
    auto text = NoteText().add(u"a\n").addAttachment(makeBox(false, 2)).add(u"milk\nb").text();
    restoreChecklistParagraphs(text);
    EXPECT_FALSE(styleAt(text, 1));
    for (const NSUInteger location : {2U, 4U, 7U}) {
        ASSERT_TRUE(styleAt(text, location)) << location;
        EXPECT_EQ(styleAt(text, location)->headIndent(), 56);
        EXPECT_EQ(styleAt(text, location)->firstLineHeadIndent(), -56);
    }
    EXPECT_FALSE(styleAt(text, 8));
}

TEST_F(StoredNoteText, HasTheStyleOfTheLastBoxOfAParagraph)
{
    auto text = NoteText()
                    .add(u"x")
                    .addAttachment(makeBox(false, 0))
                    .add(u"a")
                    .addAttachment(makeBox(false, 1))
                    .add(u"b\n")
                    .text();
    restoreChecklistParagraphs(text);
    for (NSUInteger location = 0; location < text.length(); ++location)
        EXPECT_EQ(styleAt(text, location)->headIndent(), 38) << location;
}

TEST_F(StoredNoteText, HasEachParagraphThatABoxCoversInItsStyle)
{
    // One box over "x\ny", then another over the end of the second paragraph.
    auto text = NoteText()
                    .add(u"x\ny", {{kAttachment, makeBox(false, 0)}})
                    .add(u"!", {{kAttachment, makeBox(false, 1)}})
                    .add(u"\nz")
                    .text();
    restoreChecklistParagraphs(text);
    EXPECT_EQ(styleAt(text, 0)->headIndent(), 20);
    EXPECT_EQ(styleAt(text, 2)->headIndent(), 38);
    EXPECT_EQ(styleAt(text, 4)->headIndent(), 38);
    EXPECT_FALSE(styleAt(text, 5));
}

TEST_F(StoredNoteText, HasDividersForTheirTextBeforeTheEndOnly)
{
    EXPECT_EQ(withDividers(u"01234567", {{5, 3}}).string(), u"01234567");
    const auto text = withDividers(u"012345678", {{5, 3}});
    EXPECT_EQ(text.string(), u"01234\uFFFC8");
    EXPECT_TRUE(isAttachment<CVLDividerTextAttachment>(text, 5));
    EXPECT_EQ(attachmentAt(text, 5)->fileType(), CVLDividerTextAttachmentType);
}

TEST_F(StoredNoteText, HasDividersPutInLastFirst)
{
    const auto text = withDividers(u"ab***fghij***n", {{2, 3}, {10, 3}});
    EXPECT_EQ(text.string(), u"ab\uFFFCfghij\uFFFCn");
    EXPECT_NE(attachmentAt(text, 2), attachmentAt(text, 8));
}

TEST_F(StoredNoteText, HasDividersWithoutTheAttributesOfTheirText)
{
    NSMutableAttributedString text(NSAttributedString(u"a***b", {{kForeground, NSColor::redColor()}}));
    restoreDividers(text, {{1, 3}});
    EXPECT_TRUE(text.attribute(kForeground, 0));
    EXPECT_FALSE(text.attribute(kForeground, 1));
    EXPECT_TRUE(text.attribute(kForeground, 2));
}

TEST_F(StoredNoteText, HasDividersOfRangesInAnyOrderAsFarAsTheyFit)
{
    // {2, 3} shortens the text to 12, which {10, 3} then reaches beyond.
    EXPECT_EQ(withDividers(u"ab***fghij***n", {{10, 3}, {2, 3}}).string(), u"ab\uFFFCfghij***n");
    // The second range is taken first and leaves "a*\uFFFCcdef".
    EXPECT_EQ(withDividers(u"a***bcdef", {{1, 3}, {2, 3}}).string(), u"a\uFFFCdef");
    EXPECT_EQ(withDividers(u"ab", {{1, 0}}).string(), u"a\uFFFCb");
}

TEST_F(StoredNoteText, HasNoDividersOfRangesOutsideOfIt)
{
    constexpr auto kHuge = ~NSUInteger{0};
    for (const NSRange range : {NSRange{4, 0}, NSRange{0, 4}, NSRange{5, 3}, NSRange{kHuge, 1},
                                NSRange{1, kHuge}, NSRange{kHuge, kHuge}, NSRange{NSNotFound, 3}})
        EXPECT_EQ(withDividers(u"abcd", {range}).string(), u"abcd") << range.location;
    EXPECT_EQ(withDividers(u"", {{0, 0}, {0, 3}}).string(), u"");
}

TEST_F(StoredNoteText, KeepsTheTextOfDividersThatJumpBackAndForthWithoutEnd)
{
    constexpr NSUInteger kLength = 1'000'000;
    NSMutableAttributedString text{std::u16string(kLength, u'x')};
    std::vector<NSRange> ranges;
    for (NSUInteger index = 0; index < 1'000; ++index) {
        ranges.push_back({index, 1});
        ranges.push_back({kLength - 2 - index, 1});
    }
    LogLines log;
    restoreDividers(text, ranges);
    EXPECT_THAT(log.text(), HasSubstr("some stay as text"));
    // The last range of the list is the first that is taken.
    EXPECT_EQ(text.characterAtIndex(kLength - 2 - 999), NSAttachmentCharacter);
    EXPECT_EQ(text.characterAtIndex(0), u'x');
    EXPECT_EQ(text.length(), kLength);
}

TEST_F(StoredNoteText, KeepsDividersThatStandForNothingFromGrowingWithoutEnd)
{
    constexpr NSUInteger kMost = 10'000;
    const LogLines log;
    EXPECT_EQ(withDividers(u"0123456789", std::vector<NSRange>(kMost, {5, 0})).length(), 10 + kMost);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(withDividers(u"0123456789", std::vector<NSRange>(kMost + 1, {5, 0})).length(), 10 + kMost);
    EXPECT_THAT(log.text(), HasSubstr("The dividers of a note are too many; some stay as text"));
}

TEST_F(StoredNoteText, TakesNoMoreDividersThanItHasRoomFor)
{
    const LogLines log;
    // As many as the text has units, and as many as may stand for nothing.
    std::vector<NSRange> ranges(10'010, {1, 1});
    ranges.insert(ranges.begin(), {0, 1});
    EXPECT_EQ(withDividers(u"0123456789", ranges).string(), u"0\uFFFC23456789");
    EXPECT_THAT(log.text(), HasSubstr("The dividers of a note are too many; some stay as text"));
    ranges.pop_back();
    EXPECT_EQ(withDividers(u"0123456789", ranges).string(), u"\uFFFC\uFFFC23456789");
}

TEST_F(StoredNoteText, HasTheSameCharactersWithItsDividersAndInPlainText)
{
    std::mt19937 random(1);
    const auto below = [&random](NSUInteger count) { return static_cast<NSUInteger>(random() % count); };
    for (int round = 0; round < 1000; ++round) {
        std::u16string characters;
        for (auto left = below(40); left > 0; --left)
            characters += static_cast<char16_t>(u'a' + below(26));
        std::vector<NSRange> ranges(below(6));
        for (auto& range : ranges)
            range = {below(45), below(5)};
        ASSERT_EQ(charactersWithDividers(characters, ranges), withDividers(characters, ranges).string());
    }
}

TEST_F(StoredNoteText, HasTheColoursOfItsHighlightTypes)
{
    for (const auto type : CVLExtensions::allHighlightColorTypes()) {
        const auto text = highlighted(NoteText().add(u"ab", {{kHighlight, type}}).add(u"c").text(), true);
        const auto color = CVLExtensions::colorForHighlightColorType(type);
        const NSAttributes expected{{kHighlight, type},
                                    {kBackground, CVLExtensions::highlightBackgroundColor(color)},
                                    {kForeground, CVLExtensions::highlightForegroundColor(color)}};
        EXPECT_EQ(text, NoteText().add(u"ab", expected).add(u"c").text()) << type;
    }
}

TEST_F(StoredNoteText, HasIntegersForHighlightTypes)
{
    for (const auto& value : {NSAny(2.0), NSAny(u"2")}) {
        const auto type
            = highlighted(NoteText().add(u"a", {{kHighlight, value}}).text(), true).attribute(kHighlight, 0);
        EXPECT_TRUE(type.isInteger());
        EXPECT_EQ(type.integerValue(), 2);
    }
}

TEST_F(StoredNoteText, KeepsHighlightsOfNoKnownTypeAsTheyAre)
{
    for (const auto& value :
         {NSAny(999), NSAny(0), NSAny(6), NSAny(-1), NSAny(u"x"), NSAny(NSAny::Array{2})}) {
        const auto text = NoteText().add(u"a", {{kHighlight, value}, {kBackground, NSColor::redColor()}});
        EXPECT_EQ(highlighted(text.text(), true), text.text());
    }
}

TEST_F(StoredNoteText, HasTheTypesOfItsHighlightColoursInOlderNotes)
{
    const auto green = CVLExtensions::greenHighlightColor();
    const auto pink = CVLExtensions::pinkHighlightColor();
    const auto text = highlighted(NoteText()
                                      .add(u"ab", {{kHighlight, u"old"}, {kBackground, green}})
                                      .add(u"c", {{kHighlight, u"old"}, {kBackground, NSColor::redColor()}})
                                      .add(u"d", {{kHighlight, u"old"}})
                                      .add(u"e", {{kHighlight, u"old"}, {kBackground, pink}})
                                      .add(u"f", {{kBackground, pink}})
                                      .text(),
                                  false);
    const auto expected = NoteText()
                              .add(u"ab", {{kHighlight, 2}, {kBackground, green}})
                              .add(u"c", {{kHighlight, u"old"}, {kBackground, NSColor::redColor()}})
                              .add(u"d", {{kHighlight, u"old"}})
                              .add(u"e", {{kHighlight, 4}, {kBackground, pink}})
                              .add(u"f", {{kBackground, pink}});
    EXPECT_EQ(text, expected.text());
}
