#include "platform/foundation/NSOperation.h"

#include <algorithm>
#include <iterator>
#include <utility>

NSOperation::ObserverToken NSOperation::addObserver(std::string_view key, Observer observer)
{
    m_registrations.push_back({++m_lastToken, std::string(key), std::move(observer)});
    return m_lastToken;
}

void NSOperation::removeObserver(ObserverToken token)
{
    std::erase_if(m_registrations,
                  [token](const Registration& registration) { return registration.token == token; });
}

std::vector<std::string> NSOperation::keyPathsForValuesAffectingValueForKey(std::string_view /*key*/) const
{
    return {};
}

bool NSOperation::isAffected(std::string_view key, std::string_view changedKey,
                             std::vector<std::string>& visited) const
{
    if (key == changedKey)
        return true;
    if (std::find(visited.begin(), visited.end(), key) != visited.end())
        return false;
    visited.emplace_back(key);
    const auto affecting = keyPathsForValuesAffectingValueForKey(key);
    return std::any_of(affecting.begin(), affecting.end(),
                       [&](const std::string& path) { return isAffected(path, changedKey, visited); });
}

void NSOperation::didChangeValueForKey(std::string_view key)
{
    std::vector<Registration> affected;
    std::copy_if(m_registrations.begin(), m_registrations.end(), std::back_inserter(affected),
                 [&](const Registration& registration) {
                     std::vector<std::string> visited;
                     return isAffected(registration.key, key, visited);
                 });
    for (const auto& registration : affected)
        registration.observer(registration.key);
}
