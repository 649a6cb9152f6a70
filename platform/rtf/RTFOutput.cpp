#include "platform/rtf/RTFOutput.h"

#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

/// The characters of Windows' code page 1252 from 0x80 on; 0 where it has none.
constexpr std::array<char16_t, 32> kWindows1252{
    u'\u20AC', 0,         u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', 0,         u'\u017D', 0,
    0,         u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', 0,         u'\u017E', u'\u0178'};

constexpr char16_t kLineSeparator = 0x2028;

/// The byte of a character behind ASCII; 0 for none.
unsigned windows1252Byte(char16_t unit)
{
    if (unit >= 0xA0 && unit <= 0xFF)
        return unit;
    if (unit < 0x152)
        return 0;
    const auto* const found = std::find(kWindows1252.begin(), kWindows1252.end(), unit);
    return found == kWindows1252.end() ? 0 : static_cast<unsigned>(found - kWindows1252.begin()) + 0x80;
}

bool isEscaped(char16_t unit)
{
    return unit == u'\\' || unit == u'{' || unit == u'}';
}

bool standsForItself(char16_t unit)
{
    return (unit >= 0x20 && unit < 0x7F && !isEscaped(unit)) || unit == u'\t';
}

bool isUnpairedSurrogate(std::u16string_view text, std::size_t index)
{
    const auto isLead = [](char16_t unit) { return (unit & 0xFC00U) == 0xD800; };
    const auto isTrail = [](char16_t unit) { return (unit & 0xFC00U) == 0xDC00; };
    if (isLead(text[index]))
        return index + 1 >= text.size() || !isTrail(text[index + 1]);
    return isTrail(text[index]) && (index == 0 || !isLead(text[index - 1]));
}

} // namespace

void RTFOutput::word(std::string_view name)
{
    m_bytes += '\\';
    m_bytes += name;
    m_isBehindWord = true;
}

void RTFOutput::word(std::string_view name, std::int64_t parameter)
{
    word(name);
    std::array<char, 24> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), parameter);
    m_bytes.append(digits.data(), result.ptr);
}

void RTFOutput::blank()
{
    separate();
}

void RTFOutput::separate()
{
    if (m_isBehindWord)
        m_bytes += ' ';
    m_isBehindWord = false;
}

void RTFOutput::lineBreak()
{
    m_bytes += '\n';
    m_isBehindWord = false;
}

void RTFOutput::beginGroup()
{
    m_bytes += '{';
    m_isBehindWord = false;
}

void RTFOutput::endGroup()
{
    m_bytes += '}';
    m_isBehindWord = false;
}

void RTFOutput::paragraphEnd()
{
    m_bytes += "\\\n";
    m_isBehindWord = false;
}

void RTFOutput::appendText(std::u16string_view text, bool usesCodePage)
{
    bool skipsNothing = false;
    std::size_t index = 0;
    while (index < text.size()) {
        const auto start = index;
        while (index < text.size() && standsForItself(text[index]))
            ++index;
        if (index > start) {
            // No word goes on with a tab.
            if (text[start] != u'\t')
                separate();
            m_isBehindWord = false;
            const auto size = m_bytes.size();
            m_bytes.resize(size + index - start);
            std::transform(text.begin() + static_cast<std::ptrdiff_t>(start),
                           text.begin() + static_cast<std::ptrdiff_t>(index),
                           m_bytes.begin() + static_cast<std::ptrdiff_t>(size),
                           [](char16_t unit) { return static_cast<char>(unit); });
            continue;
        }
        const auto unit = isUnpairedSurrogate(text, index) ? char16_t{kReplacementCharacter} : text[index];
        ++index;
        if (isEscaped(unit)) {
            m_bytes += '\\';
            m_bytes += static_cast<char>(unit);
            m_isBehindWord = false;
        } else if (unit == kLineSeparator || unit == u'\f') {
            word(unit == u'\f' ? "page" : "line");
            blank();
        } else if (unit < 0x80) {
            hexByte(unit);
        } else if (const auto byte = usesCodePage ? windows1252Byte(unit) : 0) {
            hexByte(byte);
        } else {
            unicode(unit, skipsNothing);
        }
    }
}

void RTFOutput::unicode(char16_t unit, bool& skipsNothing)
{
    if (!skipsNothing)
        word("uc", 0);
    skipsNothing = true;
    word("u", unit);
    blank();
}

void RTFOutput::hexByte(unsigned byte)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    m_bytes += "\\'";
    m_bytes += kDigits[byte / 16 % 16];
    m_bytes += kDigits[byte % 16];
    m_isBehindWord = false;
}

void RTFOutput::plain(std::string_view characters)
{
    separate();
    m_bytes += characters;
}

void RTFOutput::escapedBytes(std::string_view bytes)
{
    separate();
    for (const char byte : bytes) {
        if (isEscaped(static_cast<unsigned char>(byte)))
            m_bytes += '\\';
        m_bytes += byte;
    }
}

void RTFOutput::raw(std::string_view bytes)
{
    m_bytes += bytes;
    m_isBehindWord = false;
}
