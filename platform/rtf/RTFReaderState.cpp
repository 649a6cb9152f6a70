#include "platform/rtf/RTFReaderState.h"

#include "platform/rtf/RTFLimits.h"

#include <utility>

void RTFReaderStates::begin()
{
    if (m_outer.size() >= kMostRTFStates) {
        ++m_uncounted;
        return;
    }
    m_outer.push_back(m_current);
    m_current.endsDestination = false;
    m_current.isField = false;
}

std::optional<RTFReaderState> RTFReaderStates::end()
{
    if (m_uncounted > 0) {
        --m_uncounted;
        return std::nullopt;
    }
    if (m_outer.empty())
        return std::nullopt;
    auto ended = std::exchange(m_current, std::move(m_outer.back()));
    m_outer.pop_back();
    return ended;
}
