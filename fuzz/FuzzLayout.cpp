// Any text, in any styles, blocks and tables and with attachments anywhere, is laid out in a column, cut into
// pages and drawn. Every character is on one line, lines go down the column, every line is on one page, and
// no measure of the text makes the layout's own endless.
//
// In the input "@" and a letter begin another style or are an attachment; see the two tables. A digit behind
// it says how large the style's numbers are.

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "fuzz/UTF16Input.h"
#include "platform/layout/TextPages.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSTextTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// The numbers that a digit stands for.
double numberFor(char16_t digit)
{
    static constexpr std::array<double, 10> kNumbers{
        0, 1, 12, 40, 300, 5000, 1e9, -20, -1e300, std::numeric_limits<double>::quiet_NaN()};
    return digit >= u'0' && digit <= u'9' ? kNumbers.at(static_cast<std::size_t>(digit - u'0')) : 12;
}

NSMutableParagraphStyle inTable(double number)
{
    static const auto table = std::make_shared<const NSTextTable>();
    const auto place = std::isfinite(number) ? static_cast<NSInteger>(std::clamp(number, -2.0, 9.0)) : 0;
    NSMutableParagraphStyle style;
    style.setTextBlocks({std::make_shared<const NSTextTableBlock>(table, place, 1, place % 3, 1)});
    return style;
}

NSMutableParagraphStyle inBlock(double number)
{
    auto block = std::make_shared<NSTextBlock>();
    block->setWidth({number, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding);
    block->setWidth({1, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border);
    block->setBackgroundColor(NSColor::textBackgroundColor());
    NSMutableParagraphStyle style;
    style.setTextBlocks({block});
    return style;
}

NSMutableParagraphStyle styleFor(char16_t letter, double number)
{
    NSMutableParagraphStyle style;
    switch (letter) {
    case u'i':
        style.setHeadIndent(number);
        style.setTailIndent(-number);
        break;
    case u'f':
        style.setFirstLineHeadIndent(-number);
        break;
    case u'h':
        style.setMinimumLineHeight(number);
        style.setLineSpacing(number);
        break;
    case u's':
        style.setParagraphSpacing(number);
        style.setParagraphSpacingBefore(number);
        break;
    case u'j':
        style.setAlignment(NSTextAlignment::Justified);
        break;
    case u'r':
        style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
        break;
    case u'c':
        style.setLineBreakMode(NSLineBreakMode::TruncatingMiddle);
        break;
    case u't':
        return inTable(number);
    case u'b':
        return inBlock(number);
    default:
        break;
    }
    return style;
}

std::shared_ptr<NSTextAttachment> attachmentFor(char16_t letter, double number)
{
    switch (letter) {
    case u'x': {
        const auto box = CVLChecklistTextAttachment::init();
        box->setIndentationLevel(number > 0 ? static_cast<NSUInteger>(std::min(number, 100.0)) : 0);
        return box;
    }
    case u'-':
        return CVLDividerTextAttachment::init();
    case u'F':
        return std::make_shared<CVLFileAttachment>();
    case u'p': {
        auto picture = std::make_shared<NSTextAttachment>();
        picture->setBounds({{0, -number}, {number, number}});
        return picture;
    }
    default:
        return nullptr;
    }
}

NSAttributedString textOf(const std::u16string& input)
{
    NSMutableAttributedString text;
    NSAttributes attributes{{std::u16string(NSFontAttributeName), NSFont::fontWithName(u"Menlo-Bold", 11)}};
    std::size_t copied = 0;
    for (std::size_t place = 0; place + 2 < input.size(); ++place) {
        if (input[place] != u'@')
            continue;
        text.appendAttributedString(NSAttributedString(input.substr(copied, place - copied), attributes));
        const auto letter = input[place + 1];
        const auto number = numberFor(input[place + 2]);
        place += 2;
        copied = place + 1;
        if (const auto attachment = attachmentFor(letter, number))
            text.appendAttributedString(
                NSAttributedString::attributedStringWithAttachment(attachment, attributes));
        else
            attributes.insert_or_assign(std::u16string(NSParagraphStyleAttributeName),
                                        NSAny(styleFor(letter, number).copy()));
    }
    text.appendAttributedString(NSAttributedString(input.substr(copied), attributes));
    return text.copy();
}

void checkLines(const NSAttributedString& text, double width)
{
    const NSTextContainer container({width, 1e6}, &text);
    const NSLayoutManager manager(container);
    const auto used = manager.usedRect().size;
    require(std::isfinite(used.height) && used.height >= 0);
    NSUInteger location = 0;
    manager.enumerateLineFragmentsForGlyphRange(
        {0, text.length()}, [&](const NSLayoutManager::LineFragment& line) {
            require(line.range.location == location);
            location = NSMaxRange(line.range);
            require(std::isfinite(line.rect.origin.y) && line.rect.size.height >= 0);
        });
    require(location == text.length());
}

void checkPages(const NSAttributedString& text)
{
    const TextPages pages(text, {.paper = {200, 200}, .margins = {10, 10, 10, 10}});
    NSUInteger characters = 0;
    for (const auto& page : pages.pages()) {
        for (const auto range : page.ranges)
            characters += range.length;
    }
    require(characters == text.length());
    // To draw every page of a hostile text would take long, and shows no more.
    constexpr std::size_t kPagesDrawn = 3;
    const auto drawings = pages.drawings();
    for (std::size_t i = 0; i < std::min(kPagesDrawn, drawings.size()); ++i)
        require(pages.surface().pixels(drawings[i], 0.5).has_value());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kLongest = 800;
    const auto text = textOf(UTF16Input(data, std::min(size, kLongest)));
    checkLines(text, 300);
    checkLines(text, 1);
    checkPages(text);
    return 0;
}
