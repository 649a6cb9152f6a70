#include "platform/rtf/RTFBodyReading.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/text/NSAttributeNames.h"

#include <algorithm>

void RTFBodyReading::append(std::u16string_view characters, const RTFReaderState& state)
{
    m_isBehindRow = false;
    auto rest = kMostRTFUnits - std::min(kMostRTFUnits, m_assembly.length());
    const bool isWithinPair = rest < characters.size() && (characters[rest] & 0xFC00U) == 0xDC00;
    rest -= isWithinPair ? 1 : 0;
    m_assembly.append(characters.substr(0, rest), attributes.attributesFor(state.run, settings.isCocoa()));
}

void RTFBodyReading::appendAttachment(const std::shared_ptr<NSTextAttachment>& attachment,
                                      const RTFReaderState& state)
{
    if (m_attachments >= kMostRTFAttachments)
        return;
    ++m_attachments;
    m_isBehindRow = false;
    auto own = *attributes.attributesFor(state.run, settings.isCocoa());
    own.insert_or_assign(std::u16string(NSAttachmentAttributeName), NSAny(attachment));
    m_assembly.append({&NSAttachmentCharacter, 1}, std::make_shared<const NSAttributes>(std::move(own)));
}

void RTFBodyReading::endParagraph(const RTFReaderState& state)
{
    append(u"\n", state);
    endParagraphInCell(state, state.tableDepth());
}

void RTFBodyReading::endParagraphInCell(const RTFReaderState& state, std::size_t depth)
{
    const auto style = state.paragraph ? m_styles.styleFor(*state.paragraph, settings.page()) : nullptr;
    m_assembly.endParagraph(style, tables.cellAt(depth));
}

void RTFBodyReading::endCell(const RTFReaderState& state, std::size_t depth)
{
    const bool isReachedInto = tables.isSpannedAt(depth) && !tables.hasCellAt(depth);
    // A cell whose last content is a table has no paragraph behind it unless one was begun.
    const bool isEnded = !m_assembly.hasOpenParagraph() && (isReachedInto || m_isBehindRow);
    if (!isEnded) {
        append(u"\n", state);
        endParagraphInCell(state, depth);
    }
    tables.endCell(depth);
    m_isBehindRow = false;
}

void RTFBodyReading::endRow(std::size_t depth)
{
    if (tables.endRow(depth))
        m_isBehindRow = depth > 1;
}

NSAttributedString RTFBodyReading::finish(const RTFReaderState& state)
{
    if (m_assembly.hasOpenParagraph())
        endParagraphInCell(state, state.tableDepth());
    tables.finish(colors);
    return m_assembly.finish(tables);
}
