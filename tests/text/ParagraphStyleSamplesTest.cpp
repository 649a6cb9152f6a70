#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/TextClasses.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

/// Paragraph styles in archives that other programs wrote.
class ParagraphStyleSamples : public testing::Test {
protected:
    void SetUp() override
    {
        if (!std::filesystem::is_directory(folder()))
            GTEST_SKIP() << "no samples in " << folder();
    }

    static std::filesystem::path folder() { return std::filesystem::path(CORVEL_SAMPLES_DIR) / "keyed"; }

    /// The root object, without secure coding: the archives hold classes of the programs' own.
    static NSAny root(const std::string& name)
    {
        std::ifstream file(folder() / name, std::ios::binary);
        const std::string data{std::istreambuf_iterator<char>(file), {}};
        NSError error;
        const auto unarchiver = NSKeyedUnarchiver::initForReadingFromData(data, textClasses(), &error);
        EXPECT_TRUE(unarchiver) << name << ": " << error.localizedDescription();
        if (!unarchiver)
            return nullptr;
        unarchiver->setRequiresSecureCoding(false);
        auto object = unarchiver->decodeTopLevelObjectOfClasses({&NSObjectClass}, NSKeyedArchiveRootObjectKey,
                                                                &error);
        EXPECT_TRUE(object) << name << ": " << error.localizedDescription();
        return object;
    }

    static NSParagraphStyle::Ref styleInText(const std::string& name)
    {
        const auto text = root(name).object<NSAttributedStringObject>();
        EXPECT_NE(text, nullptr) << name;
        if (!text)
            return nullptr;
        NSRange range;
        const auto style
            = text->text().attribute(NSParagraphStyleAttributeName, 0, &range, {0, text->text().length()});
        EXPECT_EQ(range, NSMakeRange(0, text->text().length())) << name << ": one style throughout";
        return style.object<NSParagraphStyle>();
    }

    /// What absent keys mean.
    static NSMutableParagraphStyle plain()
    {
        NSMutableParagraphStyle style;
        style.setAlignment(NSTextAlignment::Left);
        style.setAllowsDefaultTighteningForTruncation(false);
        return style;
    }

    static NSMutableParagraphStyle withLineHeight(double height)
    {
        auto style = plain();
        style.setMinimumLineHeight(height);
        style.setMaximumLineHeight(height);
        return style;
    }
};

TEST_F(ParagraphStyleSamples, ReadAStyleOfItsOwn)
{
    auto expected = plain();
    expected.setAlignment(NSTextAlignment::Justified);
    const auto style = root("sketch-lists-NSParagraphStyle-1.archive").object<NSParagraphStyle>();
    ASSERT_NE(style, nullptr);
    EXPECT_TRUE(style->isEqual(expected));
}

TEST_F(ParagraphStyleSamples, ReadMutableStyles)
{
    auto expected = withLineHeight(20);
    expected.setParagraphSpacing(14);
    const auto first = root("sketch-lists-NSMutableParagraphStyle-1.archive").object<NSParagraphStyle>();
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->isEqual(expected));
    expected.setAlignment(NSTextAlignment::Right);
    const auto second = root("sketch-lists-NSMutableParagraphStyle-2.archive").object<NSParagraphStyle>();
    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(second->isEqual(expected));
}

TEST_F(ParagraphStyleSamples, ReadStylesOfTexts)
{
    auto expected = withLineHeight(20);
    expected.setParagraphSpacing(14);
    EXPECT_TRUE(styleInText("sketch-lists-NSAttributedString-1.archive")->isEqual(expected));
    expected.setAlignment(NSTextAlignment::Right);
    EXPECT_TRUE(styleInText("sketch-lists-NSAttributedString-2.archive")->isEqual(expected));
    auto small = withLineHeight(16);
    small.setParagraphSpacing(14);
    EXPECT_TRUE(styleInText("sketch-lists-NSAttributedString-3.archive")->isEqual(small));
}

TEST_F(ParagraphStyleSamples, ReadStylesOfTextsInRuns)
{
    for (const auto* name :
         {"sketch-lists-NSAttributedString-info-1.archive", "sketch-lists-NSAttributedString-info-2.archive"})
        EXPECT_TRUE(styleInText(name)->isEqual(withLineHeight(20))) << name;
    EXPECT_TRUE(styleInText("blueprint-pruned-runs-1.archive")->isEqual(withLineHeight(32)));
}

TEST_F(ParagraphStyleSamples, ReadAListWithItsTabs)
{
    const auto style = styleInText("blueprint-pruned-textlist-1.archive");
    ASSERT_NE(style, nullptr);
    ASSERT_EQ(style->textLists().size(), 1U);
    EXPECT_EQ(style->textLists()[0]->markerFormat(), u"{none}");
    EXPECT_EQ(style->textLists()[0]->startingItemNumber(), 1);
    auto expected = plain();
    expected.setAllowsDefaultTighteningForTruncation(true);
    expected.setHeaderLevel(1);
    expected.setBaseWritingDirection(NSWritingDirection::LeftToRight);
    expected.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Left, 11),
                          std::make_shared<const NSTextTab>(NSTextAlignment::Natural, 36)});
    expected.setTextLists(style->textLists());
    EXPECT_TRUE(style->isEqual(expected));
}
