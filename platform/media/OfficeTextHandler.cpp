#include "platform/media/OfficeTextHandler.h"

#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>

namespace {

/// Symbol fonts have their characters here, where Unicode gives them no meaning.
constexpr std::uint32_t kFirstPrivateCharacter = 0xE000;
constexpr std::uint32_t kLastPrivateCharacter = 0xF8FF;

} // namespace

enum class OfficeTextHandler::Role {
    None,
    Text,
    Block,
    Cell,
    LineBreak,
    Tab,
    NoBreakHyphen,
    Symbol,
    WordArt,
    Hidden,
    Alternatives,
    Alternative,
};

OfficeTextHandler::OfficeTextHandler(ContentSink& sink)
    : m_sink(sink)
{
}

OfficeTextHandler::Role OfficeTextHandler::roleOf(std::string_view localName)
{
    struct Row {
        std::string_view name;
        Role role;
    };

    // Sorted, for the binary search. Properties are hidden for the tabs and strings that they define.
    static constexpr std::array<Row, 31> kRows{{
        {"AlternateContent", Role::Alternatives},
        {"Choice", Role::Alternative},
        {"Fallback", Role::Alternative},
        {"binData", Role::Hidden},
        {"br", Role::LineBreak},
        {"cm", Role::Block},
        {"comment", Role::Block},
        {"cr", Role::LineBreak},
        {"del", Role::Hidden},
        {"den", Role::Cell},
        {"lists", Role::Hidden},
        {"moveFrom", Role::Hidden},
        {"noBreakHyphen", Role::NoBreakHyphen},
        {"p", Role::Block},
        {"pPr", Role::Hidden},
        {"pt", Role::Block},
        {"ptab", Role::Tab},
        {"rPr", Role::Hidden},
        {"rt", Role::Hidden},
        {"styles", Role::Hidden},
        {"sym", Role::Symbol},
        {"t", Role::Text},
        {"tab", Role::Tab},
        {"tc", Role::Cell},
        {"text", Role::Text},
        {"textpath", Role::WordArt},
        {"threadedComment", Role::Block},
        {"tr", Role::Block},
        {"tx", Role::Block},
        {"txbxContent", Role::Block},
        {"v", Role::Text},
    }};
    static_assert(std::is_sorted(kRows.begin(), kRows.end(),
                                 [](const Row& left, const Row& right) { return left.name < right.name; }));
    const auto* const row
        = std::lower_bound(kRows.begin(), kRows.end(), localName,
                           [](const Row& left, std::string_view name) { return left.name < name; });
    return row != kRows.end() && row->name == localName ? row->role : Role::None;
}

void OfficeTextHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    ++m_depth;
    if (m_skippedDepth != 0)
        return;
    const auto role = roleOf(localName);
    if (startsSkipping(role)) {
        m_skippedDepth = m_depth;
        return;
    }
    if (role == Role::Text)
        m_textDepth = m_depth;
    else if (role == Role::Block || role == Role::LineBreak)
        m_sink.breakLine();
    else if (role == Role::Cell || role == Role::Tab)
        m_sink.breakWord();
    else if (role == Role::NoBreakHyphen)
        put("\u2011");
    else if (role == Role::Symbol)
        putSymbol(attributes);
    else if (role == Role::WordArt)
        put(attributes.value("string"));
    else if (role == Role::Alternatives)
        m_alternatives.push_back(m_sink.byteCount());
}

bool OfficeTextHandler::startsSkipping(Role role) const
{
    if (role == Role::Alternative)
        return !m_alternatives.empty() && m_sink.byteCount() > m_alternatives.back();
    return role == Role::Hidden;
}

void OfficeTextHandler::endElement(std::string_view localName)
{
    const auto depth = m_depth--;
    if (m_skippedDepth == depth)
        m_skippedDepth = 0;
    else if (m_skippedDepth != 0)
        return;
    if (m_textDepth == depth)
        m_textDepth = 0;
    const auto role = roleOf(localName);
    if (role == Role::Block)
        m_sink.breakLine();
    else if (role == Role::Cell)
        m_sink.breakWord();
    else if (role == Role::Alternatives && !m_alternatives.empty())
        m_alternatives.pop_back();
}

void OfficeTextHandler::text(std::string_view text)
{
    if (m_textDepth != 0 && m_textDepth == m_depth)
        put(text);
}

void OfficeTextHandler::put(std::string_view text)
{
    (void)m_sink.append(text); // The stream asks the sink itself whether to go on.
}

void OfficeTextHandler::putSymbol(const XMLAttributes& attributes)
{
    const auto digits = attributes.value("char");
    std::uint32_t code = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    const bool isPrivate = code >= kFirstPrivateCharacter && code <= kLastPrivateCharacter;
    if (result.ec != std::errc() || code < ' ' || code > 0xFFFF || isPrivate)
        return;
    std::string character;
    appendUTF8(character, static_cast<char32_t>(code));
    put(character);
}
