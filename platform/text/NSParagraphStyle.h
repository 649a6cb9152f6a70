#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSRange.h"
#include "platform/text/NSTextAlignment.h"
#include "platform/text/NSTextBlock.h"
#include "platform/text/NSTextList.h"
#include "platform/text/NSTextTab.h"

#include <memory>
#include <vector>

enum class NSLineBreakMode {
    WordWrapping = 0,
    CharWrapping = 1,
    Clipping = 2,
    TruncatingHead = 3,
    TruncatingTail = 4,
    TruncatingMiddle = 5
};

enum class NSWritingDirection { Natural = -1, LeftToRight = 0, RightToLeft = 1 };

class NSMutableParagraphStyle;

/// How a paragraph is set. Lengths are in points. Immutable and shared by those who hold it; equal as a
/// value, in which text lists and blocks count by identity.
class NSParagraphStyle : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSParagraphStyle>;
    using TabStops = std::vector<NSTextTab::Ref>;
    using TextLists = std::vector<NSTextList::Ref>;
    using TextBlocks = std::vector<NSTextBlock::Ref>;

    static constexpr float kDefaultTighteningFactor = 0.05F;

    /// What text without a paragraph style is set by: natural alignment, the default tab stops, tightening
    /// allowed, all else 0.
    [[nodiscard]] static Ref defaultParagraphStyle();
    /// Twelve left tabs, from 28 points to 336.
    [[nodiscard]] static const TabStops& defaultTabStops();

    [[nodiscard]] NSTextAlignment alignment() const { return m_values.alignment; }

    [[nodiscard]] const TabStops& tabStops() const { return m_values.tabStops; }

    /// The distance of the stops behind the last one of `tabStops`; 0 for none.
    [[nodiscard]] double defaultTabInterval() const { return m_values.defaultTabInterval; }

    [[nodiscard]] double lineSpacing() const { return m_values.lineSpacing; }

    /// Behind the paragraph.
    [[nodiscard]] double paragraphSpacing() const { return m_values.paragraphSpacing; }

    [[nodiscard]] double paragraphSpacingBefore() const { return m_values.paragraphSpacingBefore; }

    [[nodiscard]] double headIndent() const { return m_values.headIndent; }

    /// May be negative.
    [[nodiscard]] double firstLineHeadIndent() const { return m_values.firstLineHeadIndent; }

    /// From the leading margin; when not positive, from the trailing one.
    [[nodiscard]] double tailIndent() const { return m_values.tailIndent; }

    [[nodiscard]] double minimumLineHeight() const { return m_values.minimumLineHeight; }

    /// 0 for no limit.
    [[nodiscard]] double maximumLineHeight() const { return m_values.maximumLineHeight; }

    /// 0 for the natural height, like 1.
    [[nodiscard]] double lineHeightMultiple() const { return m_values.lineHeightMultiple; }

    [[nodiscard]] float hyphenationFactor() const { return m_values.hyphenationFactor; }

    [[nodiscard]] float tighteningFactorForTruncation() const { return m_values.tighteningFactor; }

    [[nodiscard]] bool allowsDefaultTighteningForTruncation() const { return m_values.allowsTightening; }

    /// 0 for text, 1 and up for headings.
    [[nodiscard]] NSInteger headerLevel() const { return m_values.headerLevel; }

    [[nodiscard]] NSLineBreakMode lineBreakMode() const { return m_values.lineBreakMode; }

    /// Bits of the platform's strategies; 0 for none.
    [[nodiscard]] NSUInteger lineBreakStrategy() const { return m_values.lineBreakStrategy; }

    [[nodiscard]] NSWritingDirection baseWritingDirection() const { return m_values.baseWritingDirection; }

    [[nodiscard]] bool usesDefaultHyphenation() const { return m_values.usesDefaultHyphenation; }

    /// The lists that the paragraph belongs to, the outermost first.
    [[nodiscard]] const TextLists& textLists() const { return m_values.textLists; }

    /// The blocks that the paragraph is in, the outermost first.
    [[nodiscard]] const TextBlocks& textBlocks() const { return m_values.textBlocks; }

    [[nodiscard]] NSMutableParagraphStyle mutableCopy() const;

    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] static const NSClass& classObject();
    /// Archives may hold styles of this class too; they are read as plain ones.
    [[nodiscard]] static const NSClass& mutableClassObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

protected:
    struct Values {
        NSTextAlignment alignment = NSTextAlignment::Natural;
        NSLineBreakMode lineBreakMode = NSLineBreakMode::WordWrapping;
        NSWritingDirection baseWritingDirection = NSWritingDirection::Natural;
        bool allowsTightening = true;
        bool usesDefaultHyphenation = false;
        float hyphenationFactor = 0;
        float tighteningFactor = kDefaultTighteningFactor;
        double defaultTabInterval = 0;
        double lineSpacing = 0;
        double paragraphSpacing = 0;
        double paragraphSpacingBefore = 0;
        double headIndent = 0;
        double firstLineHeadIndent = 0;
        double tailIndent = 0;
        double minimumLineHeight = 0;
        double maximumLineHeight = 0;
        double lineHeightMultiple = 0;
        NSInteger headerLevel = 0;
        NSUInteger lineBreakStrategy = 0;
        TabStops tabStops = defaultTabStops();
        TextLists textLists;
        TextBlocks textBlocks;

        /// Whether the tab stops equal these, in order.
        [[nodiscard]] bool hasTabStops(const TabStops& stops) const;
        [[nodiscard]] bool equals(const Values& other) const;
    };

    NSParagraphStyle() = default;

    Values m_values;

private:
    friend class ParagraphStyleCoding;
};

/// A paragraph style to be changed: a value of one owner. It becomes an attribute by `copy`.
class NSMutableParagraphStyle final : public NSParagraphStyle {
public:
    /// The default paragraph style.
    NSMutableParagraphStyle() = default;

    explicit NSMutableParagraphStyle(const NSParagraphStyle& style)
        : NSParagraphStyle(style)
    {
    }

    [[nodiscard]] Ref copy() const;

    void setAlignment(NSTextAlignment alignment) { m_values.alignment = alignment; }

    void setTabStops(TabStops tabStops) { m_values.tabStops = std::move(tabStops); }

    /// Behind the stops whose location is not greater.
    void addTabStop(const NSTextTab::Ref& tabStop);
    /// Removes one stop equal to this one, if there is one.
    void removeTabStop(const NSTextTab& tabStop);

    void setDefaultTabInterval(double interval) { m_values.defaultTabInterval = interval; }

    void setLineSpacing(double spacing) { m_values.lineSpacing = spacing; }

    void setParagraphSpacing(double spacing) { m_values.paragraphSpacing = spacing; }

    void setParagraphSpacingBefore(double spacing) { m_values.paragraphSpacingBefore = spacing; }

    void setHeadIndent(double indent) { m_values.headIndent = indent; }

    void setFirstLineHeadIndent(double indent) { m_values.firstLineHeadIndent = indent; }

    void setTailIndent(double indent) { m_values.tailIndent = indent; }

    void setMinimumLineHeight(double height) { m_values.minimumLineHeight = height; }

    void setMaximumLineHeight(double height) { m_values.maximumLineHeight = height; }

    void setLineHeightMultiple(double multiple) { m_values.lineHeightMultiple = multiple; }

    void setHyphenationFactor(float factor) { m_values.hyphenationFactor = factor; }

    void setTighteningFactorForTruncation(float factor) { m_values.tighteningFactor = factor; }

    void setAllowsDefaultTighteningForTruncation(bool allows) { m_values.allowsTightening = allows; }

    void setHeaderLevel(NSInteger level) { m_values.headerLevel = level; }

    void setLineBreakMode(NSLineBreakMode mode) { m_values.lineBreakMode = mode; }

    void setLineBreakStrategy(NSUInteger strategy) { m_values.lineBreakStrategy = strategy; }

    void setBaseWritingDirection(NSWritingDirection direction) { m_values.baseWritingDirection = direction; }

    void setUsesDefaultHyphenation(bool uses) { m_values.usesDefaultHyphenation = uses; }

    void setTextLists(TextLists lists) { m_values.textLists = std::move(lists); }

    void setTextBlocks(TextBlocks blocks) { m_values.textBlocks = std::move(blocks); }
};
