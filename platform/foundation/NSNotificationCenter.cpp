#include "platform/foundation/NSNotificationCenter.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <utility>

class NSNotificationObserver {
public:
    NSNotificationObserver(std::optional<std::u16string> name, const NSObject* object,
                           NSNotificationCenter::Block block)
        : m_name(std::move(name))
        , m_object(object)
        , m_block(std::move(block))
    {
    }

    [[nodiscard]] bool looksFor(const NSNotification& notification) const
    {
        return (!m_name || *m_name == notification.name) && (!m_object || m_object == notification.object);
    }

    void call(const NSNotification& notification) const
    {
        if (!m_isRemoved)
            m_block(notification);
    }

    void remove() const { m_isRemoved = true; }

private:
    std::optional<std::u16string> m_name;
    const NSObject* m_object;
    NSNotificationCenter::Block m_block;
    /// A post works on the observers that there were when it began; this tells it who left since.
    mutable std::atomic<bool> m_isRemoved = false;
};

NSNotificationCenter& NSNotificationCenter::defaultCenter()
{
    static NSNotificationCenter center;
    return center;
}

NSNotificationToken NSNotificationCenter::addObserverForName(std::optional<std::u16string_view> name,
                                                             const NSObject* object, Block block)
{
    auto observedName = name ? std::optional<std::u16string>(*name) : std::nullopt;
    auto observer
        = std::make_shared<const NSNotificationObserver>(std::move(observedName), object, std::move(block));
    const std::scoped_lock lock(m_mutex);
    m_observers.push_back(observer);
    return observer;
}

void NSNotificationCenter::removeObserver(const NSNotificationToken& token)
{
    if (!token)
        return;
    token->remove();
    const std::scoped_lock lock(m_mutex);
    std::erase(m_observers, token);
}

void NSNotificationCenter::postNotificationName(std::u16string_view name, const NSObject* object)
{
    const NSNotification notification{std::u16string(name), object};
    for (const auto& observer : observersOf(notification))
        observer->call(notification);
}

std::vector<NSNotificationToken> NSNotificationCenter::observersOf(const NSNotification& notification) const
{
    std::vector<NSNotificationToken> found;
    const std::scoped_lock lock(m_mutex);
    std::ranges::copy_if(m_observers, std::back_inserter(found),
                         [&](const auto& observer) { return observer->looksFor(notification); });
    return found;
}
