#include "richtext/TrailingTables.h"

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <optional>

namespace {

struct OpenTable {
    NSTextTable::Ref table;
    NSUInteger end;
};

/// The cell that a paragraph is in; null for a paragraph outside of tables.
NSTextTableBlock::Ref cellOf(const NSAny& value)
{
    const auto style = value.object<NSParagraphStyle>();
    if (!style || style->textBlocks().empty())
        return nullptr;
    return std::dynamic_pointer_cast<const NSTextTableBlock>(style->textBlocks().front());
}

bool endsWithTable(const NSAttributedString& text)
{
    std::optional<OpenTable> open;
    text.enumerateAttribute(NSParagraphStyleAttributeName, [&open](const NSAny& value, NSRange run, bool&) {
        const auto cell = cellOf(value);
        if (!cell)
            open.reset();
        else if (!open || open->table == cell->table())
            open = {cell->table(), NSMaxRange(run)};
    });
    return open && open->end == text.length();
}

} // namespace

void DynamicColors::fixTrailingTables(NSMutableAttributedString& text)
{
    if (!endsWithTable(text))
        return;
    auto attributes = text.attributesAtIndex(text.length() - 1);
    attributes.erase(std::u16string(NSParagraphStyleAttributeName));
    // The last character may be an attachment; the line break is none.
    attributes.erase(std::u16string(NSAttachmentAttributeName));
    text.appendAttributedString(NSAttributedString(u"\n", std::move(attributes)));
}
