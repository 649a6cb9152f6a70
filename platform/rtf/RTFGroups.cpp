#include "platform/rtf/RTFGroups.h"

#include "platform/rtf/RTFLimits.h"

#include <utility>

bool RTFGroups::begin()
{
    if (m_outer.size() >= kMostRTFStates) {
        ++m_uncounted;
        return false;
    }
    m_outer.push_back(m_current);
    m_current.begun.reset();
    return true;
}

std::optional<RTFGroup> RTFGroups::end()
{
    if (m_uncounted > 0) {
        --m_uncounted;
        return std::nullopt;
    }
    if (m_outer.empty())
        return std::nullopt;
    const auto ended = std::exchange(m_current, m_outer.back());
    m_outer.pop_back();
    return ended;
}
