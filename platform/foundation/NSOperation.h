#pragma once

#include "platform/foundation/NSObject.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// A unit of work with observable state. The observable keys are "executing" and "finished", and those that a
/// subclass adds. Belongs to one thread at a time.
class NSOperation : public NSObject {
public:
    using Observer = std::function<void(std::string_view key)>;
    using ObserverToken = std::size_t;

    [[nodiscard]] virtual bool isAsynchronous() const { return false; }

    [[nodiscard]] virtual bool isExecuting() const { return false; }

    [[nodiscard]] virtual bool isFinished() const { return false; }

    /// Calls `observer` after each change of `key` or of a key that it depends on. The token ends it.
    [[nodiscard]] ObserverToken addObserver(std::string_view key, Observer observer);
    /// A token that is not, or no longer, in use is ignored. An observer may remove itself while it is
    /// called.
    void removeObserver(ObserverToken token);

protected:
    /// The keys whose change is a change of `key` as well. Chains are followed; a circle ends where it
    /// closes.
    [[nodiscard]] virtual std::vector<std::string>
    keyPathsForValuesAffectingValueForKey(std::string_view key) const;
    /// A subclass calls this after it changed the value behind `key`.
    void didChangeValueForKey(std::string_view key);

private:
    struct Registration {
        ObserverToken token;
        std::string key;
        Observer observer;
    };

    [[nodiscard]] bool isAffected(std::string_view key, std::string_view changedKey,
                                  std::vector<std::string>& visited) const;

    std::vector<Registration> m_registrations;
    ObserverToken m_lastToken = 0;
};
