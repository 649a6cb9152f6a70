#include "markdown/MarkdownSpanWriter.h"

#include "markdown/MarkdownText.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSFontManager.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/types/UTType.h"
#include "strings/MarkdownSyntax.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr auto kNone = std::u16string_view::npos;

/// What stands around text that looks a certain way.
struct Marker {
    std::u16string opening;
    std::u16string closing;

    friend bool operator==(const Marker&, const Marker&) = default;
};

NSAny valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

unsigned traitsOf(const NSAttributes& attributes)
{
    const auto font = valueOf(attributes, NSFontAttributeName).object<NSFont>();
    return font ? NSFontManager::sharedFontManager().traitsOfFont(*font) : 0;
}

std::u16string linkOf(const NSAttributes& attributes)
{
    const auto link = valueOf(attributes, NSLinkAttributeName);
    if (const auto* const url = link.url())
        return UTF16FromUTF8(url->absoluteString());
    return link.string() ? *link.string() : std::u16string();
}

/// Bars end a cell, even in code and targets.
std::u16string withEscapedBars(std::u16string_view markdown)
{
    std::u16string escaped;
    escaped.reserve(markdown.size());
    for (const auto unit : markdown)
        escaped.append(unit == u'|' ? 1 : 0, u'\\') += unit;
    return escaped;
}

class SpanWriter {
public:
    explicit SpanWriter(const MarkdownSpanContext& context)
        : m_context(context)
    {
    }

    void add(std::u16string_view text, const NSAttributes& attributes)
    {
        const auto attachment = valueOf(attributes, NSAttachmentAttributeName).object<NSTextAttachment>();
        const bool isCode = (traitsOf(attributes) & NSFixedPitchFontMask) != 0;
        auto markers = markersOf(attributes);
        while (!text.empty()) {
            const auto length = std::min(text.find_first_of(u"\u2028\uFFFC\v"), text.size());
            addText(text.substr(0, length), isCode, markers);
            if (length == text.size())
                return;
            if (text[length] != NSAttachmentCharacter)
                addLineBreak();
            else if (attachment)
                addAttachment(*attachment);
            text.remove_prefix(length + 1);
        }
    }

    std::u16string finish()
    {
        setMarkers({});
        return std::move(m_markdown);
    }

private:
    [[nodiscard]] std::vector<Marker> markersOf(const NSAttributes& attributes) const
    {
        std::vector<Marker> markers;
        const auto add = [&markers](std::u16string_view opening, std::u16string_view closing) {
            markers.push_back({std::u16string(opening), std::u16string(closing)});
        };
        if (const auto link = linkOf(attributes); !link.empty())
            add(u"[", u"](" + markdownTarget(link) + u")");
        if (valueOf(attributes, NSTextHighlightStyleAttributeName))
            add(CVLMarkdownOpeningHighlightMarker, CVLMarkdownClosingHighlightMarker);
        const auto level = valueOf(attributes, NSSuperscriptAttributeName).integerValue();
        if (level > 0)
            add(CVLMarkdownOpeningSuperscriptMarker, CVLMarkdownClosingSuperscriptMarker);
        else if (level < 0)
            add(CVLMarkdownOpeningSubscriptMarker, CVLMarkdownClosingSubscriptMarker);
        const auto traits = traitsOf(attributes);
        if ((traits & NSBoldFontMask) != 0 && !m_context.isHeading)
            add(CVLMarkdownStrongAsterisk, CVLMarkdownStrongAsterisk);
        if ((traits & NSItalicFontMask) != 0)
            add(CVLMarkdownEmphasisAsterisk, CVLMarkdownEmphasisAsterisk);
        if (valueOf(attributes, NSStrikethroughStyleAttributeName).integerValue() != 0)
            add(CVLMarkdownOpeningStrikeMarker, CVLMarkdownClosingStrikeMarker);
        return markers;
    }

    /// Blanks go outside of markers, within which they would keep these from being markers.
    void addText(std::u16string_view text, bool isCode, const std::vector<Marker>& markers)
    {
        const auto start = std::min(text.find_first_not_of(u" \t"), text.size());
        if (start == text.size()) {
            m_blanks += text;
            return;
        }
        const auto end = text.find_last_not_of(u" \t") + 1;
        const auto words = text.substr(start, end - start);
        const auto leading = text.substr(0, start);
        if (markers == m_markers)
            m_blanks += leading;
        setMarkers(markers, leading);
        m_markdown += isCode ? markdownCode(words) : escapedMarkdown(words);
        m_blanks = text.substr(end);
    }

    /// Closes and opens markers so that these are open, with the blanks between.
    void setMarkers(const std::vector<Marker>& markers, std::u16string_view leading = {})
    {
        const auto common = std::mismatch(m_markers.begin(), m_markers.end(), markers.begin(), markers.end());
        const bool isSame = common.first == m_markers.end() && common.second == markers.end();
        for (auto open = m_markers.end(); open != common.first; --open)
            m_markdown += (open - 1)->closing;
        writeBlanks();
        if (!isSame) {
            m_blanks = leading;
            writeBlanks();
        }
        for (auto next = common.second; next != markers.end(); ++next)
            open(next->opening);
        m_markers = markers;
    }

    void open(std::u16string_view opening)
    {
        // Together with the bracket it would begin an image.
        if (opening.starts_with(u'[') && m_markdown.ends_with(u'!'))
            m_markdown.insert(m_markdown.size() - 1, 1, u'\\');
        m_markdown += opening;
    }

    /// Blanks at the start of a line would not be read.
    void writeBlanks()
    {
        const bool isAtStart = m_markdown.empty() || m_markdown.back() == u'\n';
        if (!isAtStart)
            m_markdown += m_blanks;
        m_blanks.clear();
    }

    void addLineBreak()
    {
        m_blanks.clear();
        if (m_context.isHeading || m_context.isCell) {
            m_markdown += m_context.isCell ? u"<br>" : u" ";
            return;
        }
        if (!m_markdown.empty())
            m_markdown += u"\\\n";
    }

    void addAttachment(const NSTextAttachment& attachment)
    {
        const auto file = attachment.fileWrapper();
        const auto name
            = file ? file->filename().value_or(file->preferredFilename().value_or(u"")) : std::u16string();
        if (name.empty())
            return;
        const auto identifier = attachment.fileType();
        const auto type = identifier ? UTType::typeWithIdentifier(UTF8FromUTF16(*identifier)) : std::nullopt;
        setMarkers({});
        open(type && type->conformsToType(kUTTypeImage) ? u"![" : u"[");
        m_markdown += escapedMarkdown(name) + u"](" + markdownTarget(name) + u")";
    }

    MarkdownSpanContext m_context;
    std::u16string m_markdown;
    std::vector<Marker> m_markers;
    /// What comes before the next word, unless nothing does.
    std::u16string m_blanks;
};

} // namespace

std::u16string markdownSpansOf(const NSAttributedString& text, NSRange range,
                               const MarkdownSpanContext& context)
{
    SpanWriter writer(context);
    const auto characters = text.string();
    text.enumerateAttributesInRange(range, {.longestEffectiveRangeNotRequired = true},
                                    [&](const NSAttributes& attributes, NSRange run, bool& /*stop*/) {
                                        writer.add(characters.substr(run.location, run.length), attributes);
                                    });
    auto markdown = writer.finish();
    // A line break at the end ends nothing.
    while (markdown.ends_with(u"\\\n"))
        markdown.resize(markdown.size() - 2);
    return context.isCell ? withEscapedBars(markdown) : markdown;
}

bool isMarkdownCode(const NSAttributedString& text, NSRange range)
{
    bool isCode = range.length > 0;
    text.enumerateAttributesInRange(range, {.longestEffectiveRangeNotRequired = true},
                                    [&isCode](const NSAttributes& attributes, NSRange /*run*/, bool& stop) {
                                        isCode = (traitsOf(attributes) & NSFixedPitchFontMask) != 0;
                                        stop = !isCode;
                                    });
    return isCode;
}
