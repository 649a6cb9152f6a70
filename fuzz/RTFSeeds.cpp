#include "fuzz/Seeds.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <stdexcept>

namespace {

NSAttributes styled(const NSMutableParagraphStyle& style)
{
    return {{std::u16string(NSParagraphStyleAttributeName), style.copy()}};
}

std::string written(const NSAttributedString& text)
{
    auto data = NSAttributedStringDocumentFormats::RTFFromRange(text, {0, text.length()});
    if (!data)
        throw std::runtime_error("a text cannot be written as rich text");
    return std::move(data->bytes);
}

NSAttributedString letter()
{
    NSMutableAttributedString text(NSAttributedString(u"caf\u00E9 \u4E2D \U0001F600 {x}\\\n"));
    text.appendAttributedString(NSAttributedString(
        u"bold",
        {{std::u16string(NSFontAttributeName), NSFont::fontWithName(u"Helvetica-Bold", 14)},
         {std::u16string(NSForegroundColorAttributeName), NSColor::textColor()},
         {std::u16string(NSUnderlineStyleAttributeName), 9},
         {std::u16string(NSTextHighlightStyleAttributeName), NSTextHighlightStyleDefault}}));
    text.appendAttributedString(
        NSAttributedString(u"link", {{std::u16string(NSLinkAttributeName), u"https://a.example/"}}));
    return text;
}

NSAttributedString list()
{
    NSMutableAttributedString text;
    const auto outer = std::make_shared<const NSTextList>(u"{decimal}.");
    NSMutableParagraphStyle style;
    style.setTextLists({outer});
    text.appendAttributedString(NSAttributedString(u"\t1.\tone\n", styled(style)));
    style.setTextLists({outer, std::make_shared<const NSTextList>(NSTextListMarkerCheck)});
    text.appendAttributedString(NSAttributedString(u"\t\u2713\ttwo", styled(style)));
    return text;
}

NSAttributedString table()
{
    NSMutableAttributedString text;
    const auto object = std::make_shared<NSTextTable>();
    object->setNumberOfColumns(2);
    const auto inner = std::make_shared<NSTextTable>();
    const auto tall = std::make_shared<NSTextTableBlock>(object, 0, 2, 0, 1);
    NSMutableParagraphStyle style;
    style.setTextBlocks({tall});
    text.appendAttributedString(NSAttributedString(u"tall\n", styled(style)));
    style.setTextBlocks({tall, std::make_shared<NSTextTableBlock>(inner, 0, 1, 0, 1)});
    text.appendAttributedString(NSAttributedString(u"inner\n", styled(style)));
    for (int row = 0; row < 2; ++row) {
        style.setTextBlocks({std::make_shared<NSTextTableBlock>(object, row, 1, 1, 1)});
        text.appendAttributedString(NSAttributedString(u"right\n", styled(style)));
    }
    return text;
}

} // namespace

std::vector<Seed> rtfSeeds()
{
    return {
        {"letter.rtf", written(letter())}, {"list.rtf", written(list())}, {"table.rtf", written(table())}};
}
