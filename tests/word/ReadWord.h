#pragma once

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"
#include "platform/word/NSAttributedStringWord.h"
#include "tests/support/WordPackageBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

/// The text of a document; empty, and a failure, when it cannot be read.
inline NSAttributedString textOfWord(const WordPackageBytes& document,
                                     NSAny::Dictionary* documentAttributes = nullptr)
{
    NSError error;
    auto text = NSAttributedStringDocumentFormats::initWithWordDocument(NSData{document.file()},
                                                                        documentAttributes, &error);
    EXPECT_TRUE(text) << error.localizedDescription();
    return text.value_or(NSAttributedString());
}

inline NSAttributedString textOfWordBody(std::string body)
{
    WordPackageBytes document;
    document.body = std::move(body);
    return textOfWord(document);
}

/// The place of `part`, which must be in the text.
inline NSUInteger placeOf(const NSAttributedString& text, std::u16string_view part)
{
    const auto place = text.string().find(part);
    EXPECT_NE(place, std::u16string_view::npos);
    return place == std::u16string_view::npos ? 0 : place;
}

/// The attribute where `part` begins.
inline NSAny attributeAt(const NSAttributedString& text, std::u16string_view part, std::u16string_view name)
{
    return text.length() == 0 ? NSAny() : text.attribute(name, placeOf(text, part));
}

/// Null when there is none.
inline NSFont::Ref fontAt(const NSAttributedString& text, std::u16string_view part)
{
    return attributeAt(text, part, NSFontAttributeName).object<NSFont>();
}

/// The default one when there is none.
inline NSParagraphStyle::Ref styleAt(const NSAttributedString& text, std::u16string_view part)
{
    const auto style = attributeAt(text, part, NSParagraphStyleAttributeName).object<NSParagraphStyle>();
    EXPECT_TRUE(style);
    return style ? style : NSParagraphStyle::defaultParagraphStyle();
}

/// Red, green and blue as hexadecimal digits; -1 for no colour.
inline int rgbAt(const NSAttributedString& text, std::u16string_view part, std::u16string_view name)
{
    const auto color = attributeAt(text, part, name).object<NSColor>();
    const auto components = color ? color->components() : std::vector<double>();
    if (components.size() != 4)
        return -1;
    int rgb = 0;
    for (std::size_t index = 0; index < 3; ++index)
        rgb = rgb * 256 + static_cast<int>(components[index] * 255 + 0.5);
    return rgb;
}

/// The cell that holds the paragraph of `part`, the innermost; null outside of tables.
inline NSTextTableBlock::Ref cellAt(const NSAttributedString& text, std::u16string_view part)
{
    const auto& blocks = styleAt(text, part)->textBlocks();
    return blocks.empty() ? nullptr : std::dynamic_pointer_cast<const NSTextTableBlock>(blocks.back());
}
