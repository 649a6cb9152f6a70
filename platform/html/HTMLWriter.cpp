#include "platform/html/HTMLWriter.h"

#include "platform/html/HTMLAttachmentTags.h"
#include "platform/html/HTMLBlockPath.h"
#include "platform/html/HTMLBlockStyle.h"
#include "platform/html/HTMLEscaping.h"
#include "platform/html/HTMLInlineStyle.h"
#include "platform/html/HTMLListMarkers.h"
#include "platform/text/NSAttributeNames.h"

#include <fmt/format.h>

#include <algorithm>

namespace {

constexpr char16_t kLineSeparator = 0x2028;
constexpr std::u16string_view kParagraphEnds = u"\n\r\u2029";
constexpr NSInteger kMostHeaderLevel = 6;

constexpr std::string_view kCheckedBox = "\u2611 ";
constexpr std::string_view kEmptyBox = "\u2610 ";

/// Where text would lose blanks or tabs: at its ends, and where two stand together.
bool hasKeptBlanks(std::u16string_view text)
{
    if (text.empty())
        return false;
    const auto isBlank = [](char16_t unit) { return unit == u' ' || unit == kLineSeparator; };
    if (text.front() == u' ' || text.back() == u' ' || text.find(u'\t') != std::u16string_view::npos)
        return true;
    return std::adjacent_find(text.begin(), text.end(),
                              [isBlank](char16_t one, char16_t other) {
                                  return isBlank(one) && isBlank(other) && (one == u' ' || other == u' ');
                              })
        != text.end();
}

class PageWriter {
public:
    PageWriter(const NSAttributedString& text, NSRange range)
        : m_text(text)
        , m_range(NSIntersectionRange(range, {0, text.length()}))
        , m_characters(text.string())
        , m_path(m_body, m_sheet)
    {
    }

    std::string page(std::u16string_view title)
    {
        addBaseStyle();
        writeBody();
        std::string page = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>";
        appendHTMLText(page, title);
        page += fmt::format("</title>\n<style>\n{}</style>\n</head>\n<body{}>\n", m_sheet.text(),
                            htmlClassAttribute(m_bodyClass));
        page += m_body;
        page += "</body>\n</html>\n";
        return page;
    }

private:
    void addBaseStyle()
    {
        HTMLDeclarations body;
        if (const auto font = mostUsedFont(m_text, m_range)) {
            m_base.font = *font;
            body.add("font", font->shorthand());
        }
        m_base.color = mostUsedColor(m_text, m_range);
        if (m_base.color)
            body.add("color", *m_base.color);
        m_bodyClass = m_sheet.classFor(body);
        m_sheet.addRule("p,h1,h2,h3,h4,h5,h6{margin:0;font:inherit}");
    }

    void writeBody()
    {
        m_body.reserve(m_range.length + m_range.length / 2);
        const auto end = NSMaxRange(m_range);
        auto start = m_range.location;
        bool isEnded = true;
        while (start < end) {
            const auto found = m_characters.find_first_of(kParagraphEnds, start);
            const auto contentEnd = std::min(found, end);
            writeParagraph({start, contentEnd - start});
            isEnded = contentEnd < end;
            start = isEnded ? contentEnd + lineEndLength(contentEnd) : end;
        }
        // Behind a last line end stands one more line, unless it is the end of a cell or another block.
        const bool isInBlock = end > m_range.location && !styleAt(end - 1)->textBlocks().empty();
        if (isEnded && m_range.length > 0 && !isInBlock)
            writeEmptyParagraph();
        m_path.closeAll();
    }

    [[nodiscard]] NSUInteger lineEndLength(NSUInteger location) const
    {
        return m_characters.substr(location, 2) == u"\r\n" ? 2 : 1;
    }

    [[nodiscard]] NSParagraphStyle::Ref styleAt(NSUInteger location) const
    {
        const auto style
            = m_text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
        return style ? style : NSParagraphStyle::defaultParagraphStyle();
    }

    void writeEmptyParagraph()
    {
        m_path.enter(*NSParagraphStyle::defaultParagraphStyle(), {}, std::nullopt);
        m_body += "<p><br></p>\n";
    }

    void writeParagraph(NSRange content)
    {
        const auto style = styleAt(content.location);
        if (style->textLists().empty())
            return writePlainParagraph(content, *style);
        writeItem(content, *style);
    }

    void writePlainParagraph(NSRange content, const NSParagraphStyle& style)
    {
        m_path.enter(style, {}, std::nullopt);
        const auto level = std::clamp<NSInteger>(style.headerLevel(), 0, kMostHeaderLevel);
        const auto name = level == 0 ? std::string("p") : fmt::format("h{}", level);
        const auto base = paragraphBase(content, level > 0);
        m_body += fmt::format("<{}{}>", name, paragraphAttributes(content, style, base));
        writeContent(content, base);
        m_body += fmt::format("</{}>\n", name);
    }

    void writeItem(NSRange content, const NSParagraphStyle& style)
    {
        const auto& list = *style.textLists().back();
        const auto marker = listMarkerAtStart(m_characters.substr(content.location, content.length), list);
        if (marker) {
            content.location += marker->length;
            content.length -= marker->length;
        }
        const auto base = paragraphBase(content, false);
        m_path.enter(style, paragraphAttributes(content, style, base),
                     marker ? marker->number : std::nullopt);
        if (isChecklist(list))
            m_body += list.markerFormat() == NSTextListMarkerCheck ? kCheckedBox : kEmptyBox;
        writeContent(content, base);
    }

    /// The look that the paragraph's own element gives to its text. Headings and paragraphs in one font give
    /// that font.
    [[nodiscard]] HTMLBaseStyle paragraphBase(NSRange content, bool isHeading) const
    {
        auto base = m_base;
        if (content.length == 0)
            return base;
        NSRange run;
        const auto first
            = m_text.attribute(NSFontAttributeName, content.location, &run, content).object<NSFont>();
        if (first && (run.length == content.length || isHeading))
            base.font = HTMLFont::fontOf(*first);
        return base;
    }

    [[nodiscard]] std::string paragraphAttributes(NSRange content, const NSParagraphStyle& style,
                                                  const HTMLBaseStyle& base)
    {
        auto declarations = paragraphDeclarations(style);
        base.font.addDifferences(m_base.font, declarations);
        if (hasKeptBlanks(m_characters.substr(content.location, content.length)))
            declarations.add("white-space", "pre-wrap");
        auto attributes = htmlClassAttribute(m_sheet.classFor(declarations));
        if (style.baseWritingDirection() != NSWritingDirection::Natural)
            attributes += style.baseWritingDirection() == NSWritingDirection::RightToLeft ? R"( dir="rtl")"
                                                                                          : R"( dir="ltr")";
        return attributes;
    }

    void writeContent(NSRange content, const HTMLBaseStyle& base)
    {
        m_text.enumerateAttributesInRange(
            content, {.longestEffectiveRangeNotRequired = true},
            [this, &base](const NSAttributes& attributes, NSRange run, bool& /*stop*/) {
                setElements(inlineElements(attributes, base, m_sheet));
                writeCharacters(m_characters.substr(run.location, run.length), attributes);
            });
        setElements({});
        // The last line break of a block has no line behind it, and a block without lines has no height.
        const bool endsWithLine
            = content.length > 0 && m_characters[NSMaxRange(content) - 1] != kLineSeparator;
        if (!endsWithLine)
            m_body += "<br>";
    }

    /// Closes and opens elements so that these are open.
    void setElements(std::vector<HTMLInlineElement> elements)
    {
        const auto common = static_cast<std::size_t>(
            std::mismatch(m_elements.begin(), m_elements.end(), elements.begin(), elements.end()).first
            - m_elements.begin());
        for (auto index = m_elements.size(); index > common; --index)
            m_body += fmt::format("</{}>", m_elements[index - 1].name);
        for (auto index = common; index < elements.size(); ++index)
            m_body += fmt::format("<{}{}>", elements[index].name, elements[index].attributes);
        m_elements = std::move(elements);
    }

    void writeCharacters(std::u16string_view characters, const NSAttributes& attributes)
    {
        while (!characters.empty()) {
            const auto length = std::min(characters.find_first_of(u"\u2028\uFFFC\v"), characters.size());
            appendHTMLText(m_body, characters.substr(0, length));
            if (length == characters.size())
                return;
            if (characters[length] == NSAttachmentCharacter)
                writeAttachment(attributes);
            else
                m_body += "<br>";
            characters.remove_prefix(length + 1);
        }
    }

    void writeAttachment(const NSAttributes& attributes)
    {
        const auto found = attributes.find(NSAttachmentAttributeName);
        if (found == attributes.end())
            return;
        if (const auto attachment = found->second.object<NSTextAttachment>())
            m_body += htmlTagForAttachment(*attachment);
    }

    const NSAttributedString& m_text;
    NSRange m_range;
    std::u16string_view m_characters;
    std::string m_body;
    HTMLStyleSheet m_sheet;
    HTMLBlockPath m_path;
    HTMLBaseStyle m_base;
    std::string m_bodyClass;
    std::vector<HTMLInlineElement> m_elements;
};

} // namespace

std::string htmlPage(const NSAttributedString& text, NSRange range, std::u16string_view title)
{
    return PageWriter(text, range).page(title);
}
