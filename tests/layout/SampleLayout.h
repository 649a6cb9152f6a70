#pragma once

#include "platform/layout/NSLayoutManager.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/views/NSTextContainer.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// The font whose measures the tests know from its file, of 2048 units to the em; null where it is not
/// installed. At 20.48 points its lines are 19.01 above and 4.83 below the baseline, an "a" is 12.55 wide and
/// a blank 6.51.
[[nodiscard]] inline NSFont::Ref knownFont(double size = 20.48)
{
    return NSFont::fontWithName(u"DejaVuSans", size);
}

inline constexpr double kAscent = 19.01;
inline constexpr double kLine = 23.84;
inline constexpr double kLetter = 12.55;
inline constexpr double kBlank = 6.51;
/// Pango counts in 1024ths of a point.
inline constexpr double kTolerance = 0.02;

[[nodiscard]] inline NSMutableAttributedString styledText(std::u16string_view characters,
                                                          const NSMutableParagraphStyle& style = {})
{
    return NSMutableAttributedString(
        std::u16string(characters),
        NSAttributes{{std::u16string(NSFontAttributeName), knownFont()},
                     {std::u16string(NSParagraphStyleAttributeName), style.copy()}});
}

/// A text laid out, and its lines.
struct Laid {
    Laid(NSAttributedString laidText, double width, const AttachmentImage& image = {})
        : text(std::move(laidText))
        , container({width, 1000}, &text)
        , manager(container, image)
    {
        const NSRange all{0, text.length()};
        manager.enumerateLineFragmentsForGlyphRange(
            all, [&](const NSLayoutManager::LineFragment& line) { lines.push_back(line); });
        manager.enumerateAttachmentsForGlyphRange(
            all, [&](NSUInteger, NSRect frame) { attachments.push_back(frame); });
    }

    Laid(const Laid&) = delete;
    Laid& operator=(const Laid&) = delete;

    [[nodiscard]] double top(std::size_t line) const { return lines.at(line).rect.origin.y; }

    [[nodiscard]] double left(std::size_t line) const { return lines.at(line).usedRect.origin.x; }

    [[nodiscard]] double right(std::size_t line) const
    {
        return left(line) + lines.at(line).usedRect.size.width;
    }

    [[nodiscard]] double height(std::size_t line) const { return lines.at(line).rect.size.height; }

    NSAttributedString text;
    NSTextContainer container;
    NSLayoutManager manager;
    std::vector<NSLayoutManager::LineFragment> lines;
    std::vector<NSRect> attachments;
};

/// Tests that know the font's measures.
#define SKIP_WITHOUT_KNOWN_FONT()                                                                            \
    if (!knownFont())                                                                                        \
    GTEST_SKIP() << "DejaVu Sans is not installed"
