#include "markdown/MarkdownSpanWriter.h"

#include "markdown/MarkdownText.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLURLs.h"
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

/// What keeps emphasis from beginning or ending beside it.
constexpr std::u16string_view kEdgeBlanks = u" \t\u00A0";

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

/// What emphasis within a word neither begins nor ends with.
bool isEdge(char16_t unit)
{
    return isMarkdownBlank(unit) || isMarkdownPunctuation(unit);
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
        if (const auto link = linkOf(attributes); !link.empty() && !isLinkToBeLeftOut(link))
            add(u"[", u"](" + markdownTarget(link) + u")");
        if (valueOf(attributes, NSTextHighlightStyleAttributeName))
            add(CVLMarkdownOpeningHighlightMarker, CVLMarkdownClosingHighlightMarker);
        // Notes have superscripts as text that stands higher.
        const auto level = static_cast<double>(valueOf(attributes, NSSuperscriptAttributeName).integerValue())
            + valueOf(attributes, NSBaselineOffsetAttributeName).doubleValue();
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
        const auto start = std::min(text.find_first_not_of(kEdgeBlanks), text.size());
        m_blanks += text.substr(0, start);
        if (start == text.size())
            return;
        const auto end = text.find_last_not_of(kEdgeBlanks) + 1;
        const auto words = text.substr(start, end - start);
        setMarkers(markers, isCode ? markdownCode(words) : escapedMarkdown(words), isCode);
        m_blanks = text.substr(end);
    }

    /// Closes and opens markers so that these are open, with the blanks between, and writes the words.
    void setMarkers(const std::vector<Marker>& markers, std::u16string_view words = {}, bool isCode = false)
    {
        const auto common = static_cast<std::size_t>(
            std::mismatch(m_markers.begin(), m_markers.end(), markers.begin(), markers.end()).first
            - m_markers.begin());
        const bool isSame = common == m_markers.size() && common == markers.size();
        closeMarkers(common, signBehind(markers, common, words));
        if (!isSame || isCode || m_isCode)
            m_wordsStart = m_markdown.size();
        writeBlanks();
        m_isCode = isCode;
        if (common < markers.size() && isEmphasis(markers[common]) && endsWithinWord()) {
            const auto* const letter = std::find_if_not(words.begin(), words.end(), isEdge);
            const auto signs = isCode ? words.size() : static_cast<std::size_t>(letter - words.begin());
            m_markdown += words.substr(0, signs);
            words.remove_prefix(signs);
            if (words.empty())
                return;
        }
        for (auto next = common; next < markers.size(); ++next) {
            open(markers[next].opening);
            m_markers.push_back(markers[next]);
            m_openPlaces.push_back(m_markdown.size());
        }
        if (!isSame)
            m_wordsStart = m_markdown.size();
        m_markdown += words;
    }

    /// Emphasis is known by what stands at both of its sides; tags and links are not.
    static bool isEmphasis(const Marker& marker)
    {
        return marker.opening.starts_with(u'*') || marker.opening.starts_with(u'~');
    }

    /// What will stand behind markers that are closed now.
    [[nodiscard]] char16_t signBehind(const std::vector<Marker>& markers, std::size_t common,
                                      std::u16string_view words) const
    {
        if (!m_blanks.empty() || words.empty())
            return u' ';
        const bool isRun = common < markers.size() && markers[common].opening.starts_with(u'*');
        return common == markers.size() || isRun ? words.front() : u'<';
    }

    /// Whether emphasis that begins here must begin with a letter. Asterisks go on with those before them.
    [[nodiscard]] bool endsWithinWord() const
    {
        if (m_markdown.empty())
            return false;
        const auto last = m_markdown.back();
        return last == u'*' || (!isMarkdownBlank(last) && !isMarkdownPunctuation(last));
    }

    /// Closes the markers from this one on. Signs at the end of emphasis before a letter go outside, as it
    /// would not end behind them.
    void closeMarkers(std::size_t first, char16_t behind)
    {
        auto end = m_markdown.size();
        const bool endsBeforeLetter = first < m_markers.size() && isEmphasis(m_markers[first])
            && !isMarkdownBlank(behind) && !isMarkdownPunctuation(behind);
        if (endsBeforeLetter && m_isCode && m_openPlaces.back() == m_wordsStart)
            end = m_wordsStart;
        while (endsBeforeLetter && !m_isCode && end > m_wordsStart && isEdge(m_markdown[end - 1]))
            --end;
        const auto signs = m_markdown.substr(end);
        m_markdown.resize(end);
        while (m_markers.size() > first) {
            const bool isEmpty = m_openPlaces.back() == m_markdown.size();
            if (isEmpty)
                m_markdown.resize(m_markdown.size() - m_markers.back().opening.size());
            else
                m_markdown += m_markers.back().closing;
            m_markers.pop_back();
            m_openPlaces.pop_back();
        }
        m_markdown += signs;
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
        const auto read = isAtStart ? std::min(m_blanks.find_first_not_of(u" \t"), m_blanks.size()) : 0;
        m_markdown.append(m_blanks, read);
        m_blanks.clear();
    }

    /// Line breaks are blanks too, which take those before them away.
    void addLineBreak()
    {
        m_blanks.resize(m_blanks.find_last_not_of(u" \t") + 1);
        if (m_context.isHeading || m_context.isCell)
            m_blanks += m_context.isCell ? u"<br>" : u" ";
        else if (!m_markdown.empty() || !m_blanks.empty())
            m_blanks += u"\\\n";
    }

    void addAttachment(const NSTextAttachment& attachment)
    {
        const auto& file = attachment.fileWrapper();
        const auto name
            = file ? file->filename().value_or(file->preferredFilename().value_or(u"")) : std::u16string();
        if (name.empty())
            return;
        const auto identifier = attachment.fileType();
        const auto type = identifier ? UTType::typeWithIdentifier(UTF8FromUTF16(*identifier)) : std::nullopt;
        setMarkers({});
        open(type && type->conformsToType(kUTTypeImage) ? u"![" : u"[");
        m_markdown += escapedMarkdown(name) + u"](" + markdownTarget(targetOf(name)) + u")";
    }

    [[nodiscard]] std::u16string targetOf(const std::u16string& name) const
    {
        return m_context.filesFolder.empty() ? name : std::u16string(m_context.filesFolder) + u"/" + name;
    }

    MarkdownSpanContext m_context;
    std::u16string m_markdown;
    std::vector<Marker> m_markers;
    /// Where the text of each open marker begins, and that of the words written last.
    std::vector<std::size_t> m_openPlaces;
    std::size_t m_wordsStart = 0;
    /// Whether those words are code, which is not taken apart.
    bool m_isCode = false;
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
    while (markdown.ends_with(u"\\\n") || markdown.ends_with(u' '))
        markdown.resize(markdown.size() - (markdown.back() == u' ' ? 1 : 2));
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
