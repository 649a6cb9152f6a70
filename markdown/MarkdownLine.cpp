#include "markdown/MarkdownLine.h"

#include <algorithm>

namespace {

constexpr std::size_t kTabWidth = 4;
constexpr std::size_t kMostDigits = 9;
constexpr int kMostHeadingLevel = 6;
constexpr std::u16string_view kBlanks = u" \t";

bool isBlankUnit(char16_t unit)
{
    return kBlanks.find(unit) != std::u16string_view::npos;
}

std::size_t countAtStart(std::u16string_view text, char16_t sign)
{
    return std::min(text.find_first_not_of(sign), text.size());
}

std::u16string_view withoutBlanksAtEnd(std::u16string_view text)
{
    const auto last = text.find_last_not_of(kBlanks);
    return last == std::u16string_view::npos ? std::u16string_view() : text.substr(0, last + 1);
}

} // namespace

bool MarkdownLine::isBlank() const
{
    return m_rest.find_first_not_of(kBlanks) == std::u16string_view::npos;
}

void MarkdownLine::take(std::size_t count)
{
    m_rest.remove_prefix(count);
    m_column += count;
}

void MarkdownLine::takeBlanks(std::size_t mostColumns)
{
    for (; mostColumns > 0 && !m_rest.empty() && isBlankUnit(m_rest.front()); --mostColumns) {
        const bool isWithinTab = m_rest.front() == u'\t' && (m_column + 1) % kTabWidth != 0;
        ++m_column;
        if (!isWithinTab)
            m_rest.remove_prefix(1);
    }
}

std::size_t MarkdownLine::takeQuoteMarks(std::size_t most)
{
    std::size_t count = 0;
    while (count < most) {
        auto ahead = *this;
        ahead.takeBlanks(3);
        if (!ahead.m_rest.starts_with(u'>'))
            return count;
        ahead.take(1);
        ahead.takeBlanks(1);
        *this = ahead;
        ++count;
    }
    return count;
}

std::optional<MarkdownBullet> MarkdownLine::takeBullet()
{
    const auto digits = std::min(m_rest.find_first_not_of(u"0123456789"), m_rest.size());
    const auto signs = digits == 0 ? std::u16string_view(u"-+*") : std::u16string_view(u".)");
    if (digits > kMostDigits || digits == m_rest.size()
        || signs.find(m_rest[digits]) == std::u16string_view::npos)
        return std::nullopt;
    const auto behind = m_rest.substr(digits + 1);
    if (!behind.empty() && !isBlankUnit(behind.front()))
        return std::nullopt;
    MarkdownBullet bullet{m_rest[digits], std::nullopt, 0};
    if (digits > 0) {
        bullet.number = 0;
        for (const auto digit : m_rest.substr(0, digits))
            bullet.number = *bullet.number * 10 + (digit - u'0');
    }
    const auto start = m_column;
    take(digits + 1);
    const auto markerEnd = m_column;
    auto ahead = *this;
    ahead.takeBlanks();
    // More than four blanks belong to the text, and so does what an empty item has.
    if (!ahead.m_rest.empty() && ahead.m_column <= markerEnd + kTabWidth)
        *this = ahead;
    else
        takeBlanks(1);
    bullet.width = std::max(m_column, markerEnd + 1) - start;
    return bullet;
}

std::optional<bool> MarkdownLine::takeBox()
{
    const auto box = m_rest.substr(0, 3);
    const bool isOn = box == u"[x]" || box == u"[X]";
    if ((!isOn && box != u"[ ]") || (m_rest.size() > 3 && !isBlankUnit(m_rest[3])))
        return std::nullopt;
    take(3);
    takeBlanks();
    return isOn;
}

int MarkdownLine::takeHeading()
{
    const auto level = countAtStart(m_rest, u'#');
    if (level == 0 || level > kMostHeadingLevel || (level < m_rest.size() && !isBlankUnit(m_rest[level])))
        return 0;
    take(level);
    takeBlanks();
    // Marks at the end only close the heading when a blank stands before them.
    auto text = withoutBlanksAtEnd(m_rest);
    const auto last = text.find_last_not_of(u'#');
    if (last == std::u16string_view::npos)
        text = {};
    else if (isBlankUnit(text[last]))
        text = withoutBlanksAtEnd(text.substr(0, last));
    m_rest = text;
    return static_cast<int>(level);
}

bool MarkdownLine::isRule() const
{
    const auto sign = m_rest.empty() ? u'\0' : m_rest.front();
    if (sign != u'-' && sign != u'*' && sign != u'_')
        return false;
    const auto isOther = [sign](char16_t unit) { return unit != sign && !isBlankUnit(unit); };
    return std::none_of(m_rest.begin(), m_rest.end(), isOther)
        && std::count(m_rest.begin(), m_rest.end(), sign) >= 3;
}

int MarkdownLine::underlineLevel() const
{
    const auto text = withoutBlanksAtEnd(m_rest);
    if (text.empty() || (text.front() != u'=' && text.front() != u'-'))
        return 0;
    return countAtStart(text, text.front()) < text.size() ? 0 : text.front() == u'=' ? 1 : 2;
}

std::size_t MarkdownLine::fenceLength() const
{
    if (m_rest.empty() || (m_rest.front() != u'`' && m_rest.front() != u'~'))
        return 0;
    const auto length = countAtStart(m_rest, m_rest.front());
    const bool isSpan = m_rest.front() == u'`' && m_rest.find(u'`', length) != std::u16string_view::npos;
    return length < 3 || isSpan ? 0 : length;
}

bool MarkdownLine::closesFence(char16_t sign, std::size_t length) const
{
    const auto text = withoutBlanksAtEnd(m_rest);
    return countAtStart(text, sign) == text.size() && text.size() >= length;
}
