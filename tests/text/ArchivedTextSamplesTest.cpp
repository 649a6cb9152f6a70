// Attributed strings in archives that other programs wrote.

#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSFontDescriptor.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/TextClasses.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr std::u16string_view kFontKey = u"MSAttributedStringFontAttribute";
constexpr std::u16string_view kColourKey = u"MSAttributedStringColorDictionaryAttribute";

std::string bytesOfSample(const std::string& name)
{
    std::ifstream file(std::filesystem::path(CORVEL_SAMPLES_DIR) / "keyed" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

NSAny rootOf(std::string_view archive, const NSClassTable& classes = textClasses())
{
    NSError error;
    const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(archive, classes, &error);
    if (!unarchiver) {
        ADD_FAILURE() << error.localizedDescription();
        return nullptr;
    }
    unarchiver->setRequiresSecureCoding(false);
    auto root = unarchiver->decodeTopLevelObjectOfClasses({}, NSKeyedArchiveRootObjectKey, &error);
    EXPECT_TRUE(root) << error.localizedDescription();
    return root;
}

std::vector<NSRange> runRanges(const NSAttributedString& text)
{
    std::vector<NSRange> ranges;
    text.enumerateAttributesInRange(
        {0, text.length()}, {},
        [&ranges](const NSAttributes&, NSRange range, bool&) { ranges.push_back(range); });
    return ranges;
}

NSFontDescriptor::Ref descriptorAt(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(kFontKey, location).object<NSFontDescriptor>();
}

class ArchivedText : public testing::Test {
protected:
    /// None, with the test skipped, when there are no samples.
    std::optional<NSAttributedString> textOf(const std::string& name)
    {
        const auto archive = bytesOfSample(name);
        if (archive.empty())
            return std::nullopt;
        const auto read = rootOf(archive).object<NSAttributedStringObject>();
        EXPECT_TRUE(read) << name;
        if (read)
            expectToComeBack(*read);
        return read ? std::optional(read->text()) : NSAttributedString();
    }

private:
    /// What was read and is written again reads as the same.
    static void expectToComeBack(const NSAttributedStringObject& text)
    {
        const auto archive = NSKeyedArchiver::archivedDataWithRootObject(
            std::make_shared<const NSAttributedStringObject>(text), false);
        ASSERT_TRUE(archive);
        const auto again = rootOf(archive->bytes).object<NSAttributedStringObject>();
        ASSERT_TRUE(again);
        EXPECT_EQ(again->text().string(), text.text().string());
        EXPECT_EQ(runRanges(again->text()), runRanges(text.text()));
    }
};

} // namespace

TEST_F(ArchivedText, KeepsRunsThatShareTheirAttributes)
{
    const auto text = textOf("NSAttributedString.archive");
    if (!text)
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
    NSMutableAttributedString expected(u"0123456789");
    const NSAttributes helvetica{{u"Font", u"Helvetica"}, {u"Size", 123}};
    const NSAttributes times{{u"Font", u"Times"}, {u"Size", 456}};
    expected.setAttributes(helvetica, {1, 1});
    expected.setAttributes(times, {2, 4});
    expected.setAttributes(helvetica, {6, 2});
    expected.setAttributes(times, {8, 1});
    EXPECT_EQ(*text, expected);
}

TEST_F(ArchivedText, ReadsADesignProgramsLabels)
{
    struct Label {
        std::string file;
        double alpha;
        double size;
        double lineHeight;
        NSTextAlignment alignment;
    };

    const std::vector<Label> labels{
        {"sketch-lists-NSAttributedString-1.archive", 0.87, 16, 20, NSTextAlignment::Left},
        {"sketch-lists-NSAttributedString-2.archive", 0.54, 16, 20, NSTextAlignment::Right},
        {"sketch-lists-NSAttributedString-3.archive", 0.87, 13, 16, NSTextAlignment::Left},
    };
    for (const auto& label : labels) {
        const auto text = textOf(label.file);
        if (!text)
            GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
        EXPECT_EQ(text->string(), u"按钮");
        EXPECT_EQ(text->runCount(), 1U);
        const NSAny::Dictionary colour{
            {u"red", 0.0}, {u"green", 0.0}, {u"blue", 0.0}, {u"alpha", label.alpha}};
        EXPECT_EQ(text->attribute(kColourKey, 0), NSAny(colour)) << label.file;
        EXPECT_EQ(text->attribute(NSKernAttributeName, 0), NSAny(0.0));
        const auto descriptor = descriptorAt(*text, 0);
        ASSERT_TRUE(descriptor);
        EXPECT_EQ(descriptor->postscriptName(), u"PingFangSC-Regular");
        EXPECT_EQ(descriptor->pointSize(), label.size);
        const auto style = text->attribute(NSParagraphStyleAttributeName, 0).object<NSParagraphStyle>();
        ASSERT_TRUE(style);
        EXPECT_EQ(style->maximumLineHeight(), label.lineHeight);
        EXPECT_EQ(style->minimumLineHeight(), label.lineHeight);
        EXPECT_EQ(style->paragraphSpacing(), 14);
        EXPECT_EQ(style->alignment(), label.alignment) << label.file;
        EXPECT_EQ(style->tabStops(), NSParagraphStyle::defaultTabStops());
        EXPECT_TRUE(style->textLists().empty());
        EXPECT_TRUE(style->textBlocks().empty());
        EXPECT_EQ(style->tighteningFactorForTruncation(), 0.05F);
    }
}

TEST_F(ArchivedText, ReadsRunsOfTwoFonts)
{
    struct Note {
        std::string file;
        std::u16string text;
        std::vector<NSUInteger> starts;
    };

    const std::vector<Note> notes{
        {"sketch-lists-NSAttributedString-info-1.archive",
         u"md- \n适用范围：多用于移动端\n高度计算公式为：16+48*项目数",
         {0, 5, 16, 17, 25, 31}},
        {"sketch-lists-NSAttributedString-info-2.archive",
         u"sm-* \n适用范围：桌面端\n高度计算公式：16+32*项目数",
         {0, 6, 14, 15, 22, 28}},
    };
    for (const auto& note : notes) {
        const auto text = textOf(note.file);
        if (!text)
            GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
        EXPECT_EQ(text->string(), note.text);
        std::vector<NSUInteger> starts;
        for (const auto& range : runRanges(*text))
            starts.push_back(range.location);
        EXPECT_EQ(starts, note.starts) << note.file;
        for (std::size_t run = 0; run < starts.size(); ++run) {
            const auto descriptor = descriptorAt(*text, starts[run]);
            ASSERT_TRUE(descriptor);
            EXPECT_EQ(descriptor->postscriptName(), run % 2 == 0 ? u"Menlo-Regular" : u"PingFangSC-Regular");
            EXPECT_EQ(descriptor->pointSize(), 14);
        }
    }
}

TEST_F(ArchivedText, ReadsTheOlderFormOfCollections)
{
    const auto text = textOf("blueprint-pruned-runs-1.archive");
    if (!text)
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
    EXPECT_EQ(text->length(), 169U);
    EXPECT_TRUE(text->string().starts_with(u"Thank you for downloading Workflow. You rock 👊 You’ll"));
    const std::vector<NSRange> expected{{0, 45}, {45, 2}, {47, 45}, {92, 27}, {119, 50}};
    EXPECT_EQ(runRanges(*text), expected);
    EXPECT_EQ(descriptorAt(*text, 45)->postscriptName(), u"AppleColorEmoji");
    EXPECT_EQ(text->attribute(NSKernAttributeName, 0), NSAny(-0.47999998927116394));
    const auto link = text->attribute(NSForegroundColorAttributeName, 92).object<NSColor>();
    ASSERT_TRUE(link);
    EXPECT_EQ(link->components(), (std::vector<double>{0, 0.4784313725, 1, 1}));
}

TEST_F(ArchivedText, ReadsAListAndItsTabs)
{
    const auto text = textOf("blueprint-pruned-textlist-1.archive");
    if (!text)
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
    EXPECT_EQ(text->string(), u"Keyboards");
    const auto style = text->attribute(NSParagraphStyleAttributeName, 0).object<NSParagraphStyle>();
    ASSERT_TRUE(style);
    EXPECT_EQ(style->headerLevel(), 1);
    EXPECT_TRUE(style->allowsDefaultTighteningForTruncation());
    EXPECT_EQ(style->baseWritingDirection(), NSWritingDirection::LeftToRight);
    ASSERT_EQ(style->textLists().size(), 1U);
    EXPECT_EQ(style->textLists().front()->markerFormat(), NSTextListMarkerNone);
    ASSERT_EQ(style->tabStops().size(), 2U);
    EXPECT_EQ(style->tabStops()[0]->location(), 11);
    EXPECT_EQ(style->tabStops()[0]->alignment(), NSTextAlignment::Left);
    EXPECT_EQ(style->tabStops()[1]->location(), 36);
    EXPECT_EQ(style->tabStops()[1]->alignment(), NSTextAlignment::Natural);
}

TEST_F(ArchivedText, ReadsTheTextsWithinAnotherProgramsObject)
{
    const auto archive = bytesOfSample("latexit-graffle-1.archive");
    if (archive.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/keyed";
    static const NSClass equation{"LatexitEquation", &NSObjectClass, [](NSCoder& coder) -> NSAny {
                                      return NSAny::Array{coder.decodeObjectForKey("preamble"),
                                                          coder.decodeObjectForKey("sourceText"),
                                                          coder.decodeObjectForKey("color")};
                                  }};
    const auto root = rootOf(archive, NSClassTable(textClasses(), {&equation}));
    ASSERT_TRUE(root.array());
    ASSERT_EQ(root.array()->size(), 1U);
    const auto& values = *root.array()->front().array();
    const auto preamble = values[0].object<NSAttributedStringObject>();
    const auto source = values[1].object<NSAttributedStringObject>();
    ASSERT_TRUE(preamble && source);
    EXPECT_EQ(preamble->text().length(), 215U);
    EXPECT_TRUE(preamble->text().string().starts_with(u"\\documentclass[10pt]{article}\n"));
    EXPECT_EQ(source->text().string(), u"\\LaTeX iT");
    for (const auto& text : {preamble->text(), source->text()}) {
        const auto font = text.attribute(NSFontAttributeName, 0).object<NSFont>();
        ASSERT_TRUE(font);
        EXPECT_EQ(font->fontName(), u"Monaco");
        EXPECT_EQ(font->pointSize(), 12);
    }
    const auto colour = values[2].object<NSColor>();
    ASSERT_TRUE(colour);
    EXPECT_EQ(colour->components(), (std::vector<double>{0, 0, 0, 1}));
}
