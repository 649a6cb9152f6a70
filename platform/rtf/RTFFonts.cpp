#include "platform/rtf/RTFFonts.h"

#include "platform/rtf/RTFCodePages.h"
#include "platform/rtf/RTFLimits.h"

#include <limits>

namespace {

bool isCodePage(std::int32_t number)
{
    return number > 0 && number <= std::numeric_limits<std::uint16_t>::max();
}

} // namespace

void RTFFonts::setDocumentCodePage(std::int32_t codePage)
{
    if (isCodePage(codePage))
        m_documentCodePage = static_cast<std::uint16_t>(codePage);
}

void RTFFonts::setCharset(std::int32_t charset)
{
    describe(codePageForFontCharset(charset));
}

void RTFFonts::setCodePage(std::int32_t codePage)
{
    if (isCodePage(codePage))
        describe(static_cast<std::uint16_t>(codePage));
}

void RTFFonts::describe(std::uint16_t codePage)
{
    if (m_codePages.size() < kMostRTFFonts || m_codePages.contains(m_described))
        m_codePages[m_described] = codePage;
}

std::uint16_t RTFFonts::codePageForFont(std::optional<std::int32_t> font) const
{
    const auto found = m_codePages.find(font.value_or(m_defaultFont));
    return found == m_codePages.end() || found->second == 0 ? m_documentCodePage : found->second;
}
