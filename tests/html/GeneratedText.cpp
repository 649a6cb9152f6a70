#include "tests/html/GeneratedText.h"

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSShadow.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/text/NSTextTable.h"

#include <array>
#include <random>

namespace {

constexpr std::size_t kParagraphCount = 60;
constexpr std::array<std::u16string_view, 12> kWords{
    u"word ",         u"a < b & c > d",   u"\"quoted\" 'text'",  u"  two  blanks ",
    u"tab\tand\ttab", u"line\u2028break", u"\u00E9\u4E2D\u6587", u"\U0001F600",
    u"&amp;",         u"</p><p>",         u"\u0001\u000B\u001F", u"",
};
constexpr std::array<std::u16string_view, 8> kMarkers{u"{disc}",          u"{hyphen}", u"{decimal}.",
                                                      u"({lower-alpha})", u"{check}",  u"{circle}",
                                                      u"{upper-roman}:",  u"\u00BB"};

class Generator {
public:
    explicit Generator(std::uint32_t seed)
        : m_random(seed)
    {
    }

    NSAttributedString text()
    {
        for (std::size_t count = 0; count < kParagraphCount; ++count)
            addParagraph();
        return m_text;
    }

private:
    std::size_t below(std::size_t bound) { return m_random() % bound; }

    bool oneIn(std::size_t bound) { return below(bound) == 0; }

    template <typename Values> const auto& oneOf(const Values& values)
    {
        return values.at(below(values.size()));
    }

    NSColor::Ref color()
    {
        const std::array colors{NSColor::redColor(), NSColor::labelColor(), NSColor::colorWithWhite(0.3, 0.5),
                                NSColor::colorWithSRGBRed(0.1, 0.2, 0.3, 1), NSColor::textBackgroundColor()};
        return oneOf(colors);
    }

    NSFont::Ref font()
    {
        const std::array fonts{NSFont::fontWithName(u"Helvetica", 13),
                               NSFont::fontWithName(u"Helvetica-Bold", 20),
                               NSFont::fontWithName(u"Courier", 9), NSFont::systemFontOfSize(12)};
        return oneOf(fonts);
    }

    void chooseLists()
    {
        if (m_lists.size() < 4 && oneIn(2))
            m_lists.push_back(std::make_shared<NSTextList>(std::u16string(oneOf(kMarkers)), 0,
                                                           static_cast<NSInteger>(below(20))));
        else if (!m_lists.empty() && oneIn(2))
            m_lists.pop_back();
        else if (oneIn(3))
            m_lists.clear();
    }

    NSTextBlock::Ref block()
    {
        const auto made = std::make_shared<NSTextBlock>();
        decorate(*made);
        return made;
    }

    NSTextBlock::Ref cell()
    {
        if (!m_table || oneIn(10)) {
            m_table = std::make_shared<NSTextTable>();
            m_table->setCollapsesBorders(oneIn(2));
            decorate(*m_table);
            m_row = 0;
            m_column = 0;
        }
        if (oneIn(3)) {
            m_row += 1 + static_cast<NSInteger>(below(2));
            m_column = 0;
        }
        const auto made = std::make_shared<NSTextTableBlock>(m_table, m_row, static_cast<NSInteger>(below(3)),
                                                             m_column, static_cast<NSInteger>(below(3)));
        m_column += 1 + static_cast<NSInteger>(below(3));
        decorate(*made);
        return made;
    }

    void decorate(NSTextBlock& made)
    {
        if (oneIn(2))
            made.setBackgroundColor(color());
        if (oneIn(2)) {
            made.setWidth({1, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border, NSRectEdge::MinX);
            made.setBorderColor(color(), NSRectEdge::MinX);
        }
    }

    NSParagraphStyle::Ref paragraphStyle()
    {
        NSMutableParagraphStyle style;
        chooseLists();
        if (!oneIn(3))
            style.setTextLists(m_lists);
        if (oneIn(3))
            style.setTextBlocks(oneIn(4) ? NSParagraphStyle::TextBlocks{cell(), block()}
                                         : NSParagraphStyle::TextBlocks{cell()});
        else if (oneIn(6))
            style.setTextBlocks({block()});
        if (oneIn(3))
            style.setHeaderLevel(static_cast<NSInteger>(below(9)));
        if (oneIn(3))
            style.setAlignment(NSTextAlignment::Center);
        if (oneIn(5))
            style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
        style.setHeadIndent(static_cast<double>(below(40)));
        style.setLineSpacing(static_cast<double>(below(3)));
        return style.copy();
    }

    NSAttributes attributes(const NSParagraphStyle::Ref& style)
    {
        NSAttributes made{{std::u16string(NSParagraphStyleAttributeName), style}};
        const auto maybe = [&](std::u16string_view name, NSAny value) {
            if (oneIn(4))
                made.insert_or_assign(std::u16string(name), std::move(value));
        };
        made.insert_or_assign(std::u16string(NSFontAttributeName), NSAny(font()));
        maybe(NSForegroundColorAttributeName, color());
        maybe(NSBackgroundColorAttributeName, color());
        maybe(NSUnderlineStyleAttributeName, std::int64_t{9});
        maybe(NSStrikethroughStyleAttributeName, std::int64_t{1});
        maybe(NSStrikethroughColorAttributeName, color());
        maybe(NSSuperscriptAttributeName, static_cast<std::int64_t>(below(5)) - 2);
        maybe(NSKernAttributeName, 1.5);
        maybe(NSToolTipAttributeName, u"a \"tip\" & <more>");
        maybe(NSLinkAttributeName, u"https://a.example/?b=\"c\"&d=<e>");
        maybe(NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault);
        maybe(NSTextHighlightColorSchemeAttributeName, NSTextHighlightColorSchemeMint);
        maybe(NSShadowAttributeName, std::make_shared<const NSShadow>(NSMakeSize(1, 2), 3, color()));
        maybe(NSStrokeWidthAttributeName, 2.0);
        maybe(NSWritingDirectionAttributeName, NSAny::Array{1});
        return made;
    }

    void addAttachment(NSAttributes made)
    {
        constexpr std::array<std::u16string_view, 4> kNames{u"a b.png", u"c.pdf", u"d.zip", u"\u00E9.txt"};
        const auto file = NSFileWrapper::initRegularFileWithContents(NSData{"bytes"});
        file->setPreferredFilename(std::u16string(oneOf(kNames)));
        made.insert_or_assign(std::u16string(NSAttachmentAttributeName),
                              NSAny(NSTextAttachment::initWithFileWrapper(file)));
        m_text.appendAttributedString(
            NSAttributedString(std::u16string(1, NSAttachmentCharacter), std::move(made)));
    }

    void addMarker(const NSParagraphStyle::Ref& style)
    {
        if (style->textLists().empty() || oneIn(4))
            return;
        const auto marker = style->textLists().back()->markerForItemNumber(static_cast<NSInteger>(below(12)));
        m_text.appendAttributedString(NSAttributedString(u"\t" + marker + u"\t", attributes(style)));
    }

    void addParagraph()
    {
        const auto style = paragraphStyle();
        addMarker(style);
        for (auto count = below(5); count > 0; --count) {
            m_text.appendAttributedString(
                NSAttributedString(std::u16string(oneOf(kWords)), attributes(style)));
            if (oneIn(6))
                addAttachment(attributes(style));
        }
        m_text.appendAttributedString(NSAttributedString(oneIn(8) ? u"\r\n" : u"\n", attributes(style)));
    }

    std::mt19937 m_random;
    NSMutableAttributedString m_text;
    NSParagraphStyle::TextLists m_lists;
    std::shared_ptr<NSTextTable> m_table;
    NSInteger m_row = 0;
    NSInteger m_column = 0;
};

} // namespace

NSAttributedString generatedText(std::uint32_t seed)
{
    return Generator(seed).text();
}
