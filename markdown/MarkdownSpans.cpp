#include "markdown/MarkdownSpans.h"

#include "markdown/MarkdownEmphasis.h"
#include "markdown/MarkdownTarget.h"
#include "markdown/MarkdownText.h"
#include "strings/MarkdownSyntax.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

namespace {

constexpr auto kNone = std::u16string_view::npos;
/// Brackets within brackets; pieces of an image's description are looked at once for each around them.
constexpr std::size_t kMostBrackets = 32;
constexpr char16_t kLineSeparator = 0x2028;
constexpr std::u16string_view kActiveSigns = u"\\`*_~[]!<\n";

/// HTML that is a style of Markdown too.
struct StyleTag {
    MarkdownStyle style;
    std::u16string_view opening;
    std::u16string_view closing;
};

constexpr std::array kStyleTags{
    StyleTag{MarkdownStyle::Highlight, CVLMarkdownOpeningHighlightMarker, CVLMarkdownClosingHighlightMarker},
    StyleTag{MarkdownStyle::Superscript, CVLMarkdownOpeningSuperscriptMarker,
             CVLMarkdownClosingSuperscriptMarker},
    StyleTag{MarkdownStyle::Subscript, CVLMarkdownOpeningSubscriptMarker, CVLMarkdownClosingSubscriptMarker},
};

using Target = std::shared_ptr<const std::u16string>;

class SpanReader {
public:
    explicit SpanReader(std::u16string_view text)
        : m_text(text)
    {
        for (std::size_t tag = 0; tag < kStyleTags.size(); ++tag)
            m_lastTagEnds.at(tag) = text.rfind(kStyleTags.at(tag).closing);
        for (std::size_t place = text.find(u'`'); place != kNone; place = text.find(u'`', place)) {
            const auto length = runLength(place);
            m_lastBackquotes[length] = place;
            place += length;
        }
    }

    std::vector<MarkdownSpan> spans()
    {
        while (m_place < m_text.size())
            readOne();
        pairFrom(0);
        return styledSpans();
    }

private:
    struct Bracket {
        std::size_t piece = 0;
        std::size_t delimiterCount = 0;
        std::size_t rangeCount = 0;
        bool isImage = false;
    };

    [[nodiscard]] std::size_t runLength(std::size_t place) const
    {
        return std::min(m_text.find_first_not_of(m_text[place], place), m_text.size()) - place;
    }

    void readOne()
    {
        const auto plain = std::min(m_text.find_first_of(kActiveSigns, m_place), m_text.size());
        if (plain > m_place) {
            addText(m_text.substr(m_place, plain - m_place));
            m_place = plain;
            return;
        }
        switch (m_text[m_place]) {
        case u'\\':
            return readEscape();
        case u'`':
            return readCode();
        case u'[':
            return openBracket(1);
        case u'!':
            return m_text.substr(m_place).starts_with(u"![") ? openBracket(2) : takeText(1);
        case u']':
            return closeBracket();
        case u'<':
            return readTag();
        case u'\n':
            return readLineEnd(false);
        default:
            return readDelimiter();
        }
    }

    MarkdownSpan& addPiece(MarkdownSpan::Kind kind, std::u16string_view text)
    {
        m_pieces.push_back({.kind = kind, .text = std::u16string(text), .link = nullptr});
        return m_pieces.back();
    }

    void addText(std::u16string_view text) { addPiece(MarkdownSpan::Kind::Text, text); }

    void takeText(std::size_t length)
    {
        addText(m_text.substr(m_place, length));
        m_place += length;
    }

    void readEscape()
    {
        const auto following = m_place + 1 < m_text.size() ? m_text[m_place + 1] : u'a';
        if (following == u'\n') {
            ++m_place;
            return readLineEnd(true);
        }
        if (isMarkdownPunctuation(following))
            ++m_place;
        takeText(1);
    }

    /// Two blanks or a backslash before a line end keep it.
    void readLineEnd(bool isKept)
    {
        ++m_place;
        if (!m_pieces.empty() && m_pieces.back().kind == MarkdownSpan::Kind::Text) {
            auto& before = m_pieces.back().text;
            isKept = isKept || before.ends_with(u"  ");
            before.resize(std::min(before.find_last_not_of(u" \t") + 1, before.size()));
        }
        m_place = std::min(m_text.find_first_not_of(u" \t", m_place), m_text.size());
        addText(isKept ? std::u16string_view(&kLineSeparator, 1) : u" ");
    }

    void readCode()
    {
        const auto length = runLength(m_place);
        const auto start = m_place + length;
        if (m_lastBackquotes[length] < start)
            return takeText(length);
        auto end = m_text.find(u'`', start);
        while (runLength(end) != length)
            end = m_text.find(u'`', end + runLength(end));
        addCode(m_text.substr(start, end - start));
        m_place = end + length;
    }

    /// A blank at both ends stands for none, so that code can begin and end with backquotes.
    void addCode(std::u16string_view code)
    {
        const bool isPadded = code.size() > 2 && code.starts_with(u' ') && code.ends_with(u' ')
            && code.find_first_not_of(u' ') != kNone;
        auto& piece = addPiece(MarkdownSpan::Kind::Code, isPadded ? code.substr(1, code.size() - 2) : code);
        std::replace(piece.text.begin(), piece.text.end(), u'\n', u' ');
    }

    void readDelimiter()
    {
        const auto sign = m_text[m_place];
        const auto length = runLength(m_place);
        const auto before = m_place == 0 ? u' ' : m_text[m_place - 1];
        const auto end = m_place + length;
        const auto behind = end == m_text.size() ? u' ' : m_text[end];
        const bool opensText = !isMarkdownBlank(behind)
            && (!isMarkdownPunctuation(behind) || isMarkdownBlank(before) || isMarkdownPunctuation(before));
        const bool closesText = !isMarkdownBlank(before)
            && (!isMarkdownPunctuation(before) || isMarkdownBlank(behind) || isMarkdownPunctuation(behind));
        // Underscores within words are part of the words.
        const bool isUnderscore = sign == u'_';
        const bool canOpen = opensText && (!isUnderscore || !closesText || isMarkdownPunctuation(before));
        const bool canClose = closesText && (!isUnderscore || !opensText || isMarkdownPunctuation(behind));
        if ((canOpen || canClose) && (sign != u'~' || length <= 2))
            m_delimiters.push_back({m_pieces.size(), sign, length, length, canOpen, canClose});
        takeText(length);
    }

    /// Pairs the delimiters from this one on, and leaves as text what has no other half.
    void pairFrom(std::size_t first)
    {
        const auto delimiters = std::span(m_delimiters).subspan(first);
        pairDelimiters(delimiters, m_ranges);
        for (const auto& delimiter : delimiters)
            m_pieces[delimiter.piece].text.resize(delimiter.count);
        m_delimiters.resize(first);
    }

    // Links.

    void openBracket(std::size_t length)
    {
        if (m_brackets.size() < kMostBrackets)
            m_brackets.push_back({m_pieces.size(), m_delimiters.size(), m_ranges.size(), length == 2});
        takeText(length);
    }

    void closeBracket()
    {
        if (m_brackets.empty())
            return takeText(1);
        const auto bracket = m_brackets.back();
        m_brackets.pop_back();
        const auto target = markdownTargetAtStart(m_text.substr(m_place + 1));
        if (!target)
            return takeText(1);
        m_place += 1 + target->length;
        pairFrom(bracket.delimiterCount);
        m_pieces[bracket.piece].text.clear();
        const auto link = std::make_shared<const std::u16string>(target->text);
        if (bracket.isImage)
            return makeImage(bracket, link);
        for (auto piece = bracket.piece; piece < m_pieces.size(); ++piece) {
            if (m_pieces[piece].kind != MarkdownSpan::Kind::Image)
                m_pieces[piece].link = link;
        }
        // A link holds no links, so no bracket before it can begin one around it.
        m_brackets.clear();
    }

    /// An image's description has no styles.
    void makeImage(const Bracket& bracket, const Target& link)
    {
        std::u16string description;
        for (auto piece = bracket.piece; piece < m_pieces.size(); ++piece)
            description += m_pieces[piece].text;
        m_pieces.resize(bracket.piece);
        addPiece(MarkdownSpan::Kind::Image, description).link = link;

        const auto isWithin
            = [&bracket](const MarkdownStyleRange& range) { return range.first > bracket.piece; };
        const auto added = m_ranges.begin() + static_cast<std::ptrdiff_t>(bracket.rangeCount);
        m_ranges.erase(std::remove_if(added, m_ranges.end(), isWithin), m_ranges.end());
        for (auto index = bracket.rangeCount; index < m_ranges.size(); ++index)
            m_ranges[index].end = std::min(m_ranges[index].end, bracket.piece);
        for (auto& open : m_openTags) {
            while (!open.empty() && open.back() > bracket.piece)
                open.pop_back();
        }
    }

    // Angle brackets.

    void readTag()
    {
        const auto rest = m_text.substr(m_place, kMostMarkdownTargetUnits);
        for (std::size_t tag = 0; tag < kStyleTags.size(); ++tag) {
            if (readStyleTag(tag, rest))
                return;
        }
        for (const std::u16string_view lineBreak : {u"<br>", u"<br/>", u"<br />"}) {
            if (!rest.starts_with(lineBreak))
                continue;
            m_place += lineBreak.size();
            return addText({&kLineSeparator, 1});
        }
        const auto end = rest.find_first_of(u"> \t\n<", 1);
        if (end == kNone || rest[end] != u'>' || !isMarkdownURL(rest.substr(1, end - 1)))
            return takeText(1);
        const auto target = rest.substr(1, end - 1);
        addPiece(MarkdownSpan::Kind::Text, target).link = std::make_shared<const std::u16string>(target);
        m_place += end + 1;
    }

    bool readStyleTag(std::size_t index, std::u16string_view rest)
    {
        const auto& tag = kStyleTags.at(index);
        auto& open = m_openTags.at(index);
        const auto lastEnd = m_lastTagEnds.at(index);
        if (rest.starts_with(tag.opening) && lastEnd != kNone && lastEnd > m_place) {
            open.push_back(m_pieces.size());
            m_place += tag.opening.size();
            return true;
        }
        if (open.empty() || !rest.starts_with(tag.closing))
            return false;
        m_ranges.push_back({tag.style, open.back(), m_pieces.size()});
        open.pop_back();
        m_place += tag.closing.size();
        return true;
    }

    /// The pieces with the styles of their ranges, neighbours that are alike joined.
    std::vector<MarkdownSpan> styledSpans()
    {
        std::vector<std::array<int, kMarkdownStyleCount>> changes(m_pieces.size() + 1);
        for (const auto& range : m_ranges) {
            const auto style = static_cast<std::size_t>(range.style);
            const auto end = std::min(range.end, m_pieces.size());
            ++changes[std::min(range.first, end)].at(style);
            --changes[end].at(style);
        }
        std::array<int, kMarkdownStyleCount> depths{};
        std::vector<MarkdownSpan> spans;
        for (std::size_t index = 0; index < m_pieces.size(); ++index) {
            for (std::size_t style = 0; style < kMarkdownStyleCount; ++style)
                depths.at(style) += changes[index].at(style);
            auto& piece = m_pieces[index];
            piece.isStrong = depths[static_cast<std::size_t>(MarkdownStyle::Strong)] > 0;
            piece.isEmphasized = depths[static_cast<std::size_t>(MarkdownStyle::Emphasis)] > 0;
            piece.isStruck = depths[static_cast<std::size_t>(MarkdownStyle::Strike)] > 0;
            piece.isHighlighted = depths[static_cast<std::size_t>(MarkdownStyle::Highlight)] > 0;
            piece.isSuperscript = depths[static_cast<std::size_t>(MarkdownStyle::Superscript)] > 0;
            piece.isSubscript = depths[static_cast<std::size_t>(MarkdownStyle::Subscript)] > 0;
            append(spans, std::move(piece));
        }
        return spans;
    }

    static void append(std::vector<MarkdownSpan>& spans, MarkdownSpan span)
    {
        if (span.text.empty() && span.kind != MarkdownSpan::Kind::Image)
            return;
        const bool isAlike = !spans.empty() && span.kind == MarkdownSpan::Kind::Text
            && spans.back().kind == span.kind && spans.back().link == span.link
            && spans.back().isStrong == span.isStrong && spans.back().isEmphasized == span.isEmphasized
            && spans.back().isStruck == span.isStruck && spans.back().isHighlighted == span.isHighlighted
            && spans.back().isSuperscript == span.isSuperscript
            && spans.back().isSubscript == span.isSubscript;
        if (isAlike)
            spans.back().text += span.text;
        else
            spans.push_back(std::move(span));
    }

    std::u16string_view m_text;
    std::size_t m_place = 0;
    std::vector<MarkdownSpan> m_pieces;
    std::vector<MarkdownDelimiter> m_delimiters;
    std::vector<MarkdownStyleRange> m_ranges;
    std::vector<Bracket> m_brackets;
    /// By tag: the pieces that open ones stand before, and where the last closing one stands.
    std::array<std::vector<std::size_t>, kStyleTags.size()> m_openTags;
    std::array<std::size_t, kStyleTags.size()> m_lastTagEnds{};
    /// Where the last run of so many backquotes stands.
    std::map<std::size_t, std::size_t> m_lastBackquotes;
};

} // namespace

std::vector<MarkdownSpan> markdownSpans(std::u16string_view text)
{
    const auto last = text.find_last_not_of(u" \t");
    return SpanReader(text.substr(0, last == kNone ? 0 : last + 1)).spans();
}
