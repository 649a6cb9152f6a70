#include "note/NotePackageReader.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "colours/HighlightColours.h"
#include "paragraphs/ParagraphStyles.h"
#include "platform/text/NSColor.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class NotePackageReader : public StyleTest {
protected:
    /// The text of a package as it is shown.
    static NSAttributedString shown(const NSAttributedString& stored,
                                    const NSAny::Dictionary& attributes = {})
    {
        const auto package = NotePackage().addText(stored).addAttributes(attributes);
        auto contents = contentsOfNotePackage(package.wrapper());
        return shownNoteText(contents.text.value(), contents.attributes.value(), package.wrapper());
    }
};

const std::u16string kForeground(NSForegroundColorAttributeName);
const std::u16string kBackground(NSBackgroundColorAttributeName);
const std::u16string kHighlight(CVLHighlightTextAttributeName);

} // namespace

TEST_F(NotePackageReader, HasTheNamesOfMembersThatPackagesHold)
{
    EXPECT_EQ(kNoteTextMember, u"NoteText");
    EXPECT_EQ(kNoteAttributesMember, u"NoteAttributes");
    EXPECT_EQ(kNoteRTFMember, u"TXT.rtf");
}

TEST_F(NotePackageReader, FindsTextAndAttributes)
{
    const auto contents = contentsOfNotePackage(NotePackage()
                                                    .addText(NSAttributedString(u"text"))
                                                    .addAttributes({{u"showSmallImages", true}})
                                                    .wrapper());
    EXPECT_EQ(contents.text.value().string(), u"text");
    EXPECT_TRUE(contents.attributes.value().showSmallImages);
    EXPECT_FALSE(contents.isUnreadable());
}

TEST_F(NotePackageReader, FindsNothingInAnEmptyFolder)
{
    const auto contents = contentsOfNotePackage(NotePackage().wrapper());
    EXPECT_EQ(contents.text.value().length(), 0U);
    EXPECT_FALSE(contents.hasText);
    EXPECT_FALSE(contents.attributes);
    EXPECT_TRUE(contents.isUnreadable());
}

TEST_F(NotePackageReader, LooksForNamesWithTheirCase)
{
    const auto contents
        = contentsOfNotePackage(NotePackage()
                                    .add(u"notetext", archivedText(NSAttributedString(u"text")))
                                    .add(u"NOTEATTRIBUTES", "")
                                    .wrapper());
    EXPECT_FALSE(contents.hasText);
    EXPECT_FALSE(contents.attributes);
}

TEST_F(NotePackageReader, TakesAnEmptyTextForAnEmptyNote)
{
    const auto contents = contentsOfNotePackage(NotePackage().add(kNoteTextMember, "").wrapper());
    EXPECT_EQ(contents.text.value().length(), 0U);
    EXPECT_FALSE(contents.isUnreadable());
}

TEST_F(NotePackageReader, TakesATextThatIsNoFileForAnEmptyNote)
{
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    auto link = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::fileURLWithPath("/etc/passwd"));
    for (const auto& member : {folder, link}) {
        member->setPreferredFilename(std::u16string(kNoteTextMember));
        const auto contents = contentsOfNotePackage(NotePackage().add(member).wrapper());
        EXPECT_EQ(contents.text.value().length(), 0U);
        EXPECT_FALSE(contents.isUnreadable());
    }
}

TEST_F(NotePackageReader, HasNoTextOfWhatCannotBeDecoded)
{
    LogLines log;
    const auto contents = contentsOfNotePackage(NotePackage().add(kNoteTextMember, "damaged").wrapper());
    EXPECT_THAT(log.text(), HasSubstr("Could not decode note text: "));
    EXPECT_FALSE(contents.text);
    EXPECT_EQ(contents.textError.code(), static_cast<int>(NSCocoaError::CoderReadCorrupt));
    EXPECT_TRUE(contents.isUnreadable());
}

TEST_F(NotePackageReader, SkipsAttributesThatAreNoFile)
{
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(std::u16string(kNoteAttributesMember));
    EXPECT_FALSE(contentsOfNotePackage(NotePackage().add(folder).wrapper()).attributes);
}

TEST_F(NotePackageReader, TakesAttributesThatCannotBeReadForNoneSet)
{
    for (const auto* bytes : {"", "damaged"}) {
        const auto contents
            = contentsOfNotePackage(NotePackage().add(kNoteAttributesMember, bytes).wrapper());
        ASSERT_TRUE(contents.attributes);
        EXPECT_FALSE(contents.attributes->showSmallImages);
    }
}

TEST_F(NotePackageReader, ShowsTextInTheDynamicColour)
{
    const auto text = shown(NoteText()
                                .add(u"a", {{kForeground, NSColor::blackColor()}})
                                .add(u"b")
                                .add(u"c", {{kForeground, NSColor::redColor()}})
                                .text());
    for (const NSUInteger location : {0U, 1U})
        EXPECT_TRUE(text.attribute(kForeground, location).object<NSColor>()->isEqual(*NSColor::textColor()));
    EXPECT_TRUE(text.attribute(kForeground, 2).object<NSColor>()->isEqual(*NSColor::redColor()));
}

TEST_F(NotePackageReader, ShowsListsThatOnlyLookLikeThem)
{
    const auto text = shown(NoteText().add(u"\t\u2022\tMilk", CVLExtensions::listParagraphStyle()).text());
    ASSERT_EQ(listsAt(text, 0).size(), 1U);
    EXPECT_EQ(listsAt(text, 0).front()->markerFormat(), NSTextListMarkerDisc);
}

TEST_F(NotePackageReader, ShowsWhiteBackgroundsNot)
{
    EXPECT_FALSE(
        shown(NoteText().add(u"a", {{kBackground, NSColor::whiteColor()}}).text()).attribute(kBackground, 0));
}

TEST_F(NotePackageReader, ShowsChecklistItemsInTheirStyle)
{
    const auto text = shown(NoteText().addAttachment(makeBox(true, 1)).add(u"milk\n").text());
    EXPECT_EQ(styleAt(text, 3)->headIndent(), 38);
    EXPECT_TRUE(text.attribute(NSAttachmentAttributeName, 0).object<CVLChecklistTextAttachment>()->isOn());
}

TEST_F(NotePackageReader, ShowsDividers)
{
    const auto text = shown(NSAttributedString(u"a***b"), {{u"dividerRanges", NSAny::Array{u"{1, 3}"}}});
    EXPECT_EQ(text.string(), u"a\uFFFCb");
    EXPECT_TRUE(isAttachment<CVLDividerTextAttachment>(text, 1));
}

TEST_F(NotePackageReader, ShowsADividerThatEndsTheNoteAsText)
{
    EXPECT_EQ(shown(NSAttributedString(u"a***"), {{u"dividerRanges", NSAny::Array{u"{1, 3}"}}}).string(),
              u"a***");
}

TEST_F(NotePackageReader, ShowsHighlightsOfEitherForm)
{
    const auto green = CVLExtensions::greenHighlightColor();
    const auto ofTypes = shown(NoteText().add(u"a", {{kHighlight, 2}}).text(), {{u"usesColorTypes", true}});
    EXPECT_TRUE(ofTypes.attribute(kForeground, 0)
                    .object<NSColor>()
                    ->isEqual(*CVLExtensions::highlightForegroundColor(green)));
    const auto ofColors = shown(NoteText().add(u"a", {{kHighlight, 1}, {kBackground, green}}).text());
    EXPECT_EQ(ofColors.attribute(kHighlight, 0), NSAny(2));
}

TEST_F(NotePackageReader, PutsDividersWhereTheArchivedTextHasThem)
{
    // Attachments are bound before, which changes no location.
    const auto stored = NoteText()
                            .addAttachment(NSTextAttachment::initWithFileWrapper(placeholderNamed(u"a.png")))
                            .add(u"***b")
                            .text();
    EXPECT_EQ(shown(stored, {{u"dividerRanges", NSAny::Array{u"{1, 3}"}}}).string(), u"\uFFFC\uFFFCb");
}
