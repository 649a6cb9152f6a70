#include "platform/word/WordTextBuilder.h"

#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostPendingUnits = 16'384;
/// Changes of looks beyond which text goes on as it looks there: each is kept by itself.
constexpr std::size_t kMostChanges = 1'000'000;

/// Characters that mean something else in a text than in a document.
char16_t plainUnit(char16_t unit)
{
    constexpr char16_t kNextLine = 0x0085;
    constexpr char16_t kParagraphSeparator = 0x2029;
    const bool isBlank
        = unit == u'\n' || unit == u'\r' || unit == u'\t' || unit == kNextLine || unit == kParagraphSeparator;
    if (isBlank)
        return u' ';
    return unit == NSAttachmentCharacter ? char16_t{0xFFFD} : unit;
}

} // namespace

void WordTextBuilder::append(std::string_view text, const WordTextLook& look)
{
    const auto before = m_sink.byteCount();
    (void)m_sink.append(text); // What it took is looked at.
    auto units = UTF16FromUTF8(text.substr(0, m_sink.byteCount() - before));
    std::transform(units.begin(), units.end(), units.begin(), plainUnit);
    take(units, look);
}

void WordTextBuilder::append(char16_t unit, const WordTextLook& look)
{
    if (m_sink.append(UTF8FromUTF16({&unit, 1})))
        take({&unit, 1}, look);
}

void WordTextBuilder::take(std::u16string_view units, const WordTextLook& look)
{
    if (units.empty())
        return;
    const bool goesOn = m_pending.size() + units.size() <= kMostPendingUnits
        && (look == m_pendingLook || m_flushCount >= kMostChanges);
    if (!goesOn)
        flush();
    if (m_pending.empty() && m_flushCount < kMostChanges)
        m_pendingLook = look;
    m_pending += units;
}

void WordTextBuilder::flush()
{
    if (m_pending.empty())
        return;
    if (++m_flushCount == kMostChanges)
        m_sink.noteCut("looks beyond a bound of changes were left out");
    m_text.appendAttributedString(
        NSAttributedString(m_pending, m_attributes.attributes(m_pendingLook, scriptOfText(m_pending))));
    m_pending.clear();
}

void WordTextBuilder::appendAttachment(const std::shared_ptr<NSTextAttachment>& attachment,
                                       const WordTextLook& look)
{
    if (!m_sink.append("\uFFFC"))
        return;
    flush();
    m_text.appendAttributedString(NSAttributedString::attributedStringWithAttachment(
        NSAny(attachment), m_attributes.attributes(look, WordScript::Western)));
}

void WordTextBuilder::appendText(const NSAttributedString& text)
{
    flush();
    m_text.appendAttributedString(text);
}

void WordTextBuilder::endParagraph(NSUInteger start, const NSParagraphStyle::Ref& style,
                                   const WordTextLook& look)
{
    append(u'\n', look);
    flush();
    m_text.addAttribute(NSParagraphStyleAttributeName, NSAny(style), {start, m_text.length() - start});
}

void WordTextBuilder::removeFrom(NSUInteger start)
{
    flush();
    m_text.deleteCharactersInRange({start, m_text.length() - start});
}

NSMutableAttributedString& WordTextBuilder::text()
{
    flush();
    return m_text;
}
