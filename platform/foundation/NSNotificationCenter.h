#pragma once

#include "platform/foundation/NSObject.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Something that happened, by name, and the object that it is about, if any.
struct NSNotification {
    std::u16string name;
    const NSObject* object = nullptr;
};

/// One observer's registration: what `removeObserver` takes. The centre keeps the observer whether or not its
/// token is kept.
class NSNotificationObserver;
using NSNotificationToken = std::shared_ptr<const NSNotificationObserver>;

/// Tells observers what happened. Any thread may call any operation. A block runs on the thread that posts,
/// within the post, in the order in which the observers were added; blocks may add, remove and post
/// themselves, and do not throw.
class NSNotificationCenter {
public:
    using Block = std::function<void(const NSNotification& notification)>;

    /// The centre that the whole process shares.
    [[nodiscard]] static NSNotificationCenter& defaultCenter();

    /// `block` will be called for notifications with this name and this object; where one of them is absent,
    /// for those with any. A post that is under way does not reach it.
    [[nodiscard]] NSNotificationToken addObserverForName(std::optional<std::u16string_view> name,
                                                         const NSObject* object, Block block);

    /// The block is not called any more, not even by a post that is under way on this thread. A call that
    /// another thread has begun goes on. Null, and a token that was removed before, are no error.
    void removeObserver(const NSNotificationToken& token);

    /// Calls the blocks of all observers that look for this, one after another.
    void postNotificationName(std::u16string_view name, const NSObject* object = nullptr);

private:
    [[nodiscard]] std::vector<NSNotificationToken> observersOf(const NSNotification& notification) const;

    mutable std::mutex m_mutex;
    std::vector<NSNotificationToken> m_observers;
};
