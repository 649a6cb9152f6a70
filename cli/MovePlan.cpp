#include "cli/MovePlan.h"

#include "platform/foundation/NSUUID.h"

std::vector<MoveStep> movePlan(const NSURL& from, const NSURL& to,
                               const std::function<bool(const NSURL&)>& isIndexed)
{
    const auto oldFolder = from.URLByDeletingLastPathComponent();
    const auto newFolder = to.URLByDeletingLastPathComponent();
    if (oldFolder == newFolder || from.lastPathComponent() == to.lastPathComponent())
        return {{from, to}};
    const auto moved = newFolder.URLByAppendingPathComponent(from.lastPathComponent());
    if (!isIndexed(moved))
        return {{from, moved}, {moved, to}};
    const auto renamed = oldFolder.URLByAppendingPathComponent(to.lastPathComponent());
    if (!isIndexed(renamed))
        return {{from, renamed}, {renamed, to}};
    const auto travellingName = NSUUID::UUIDString();
    const auto departing = oldFolder.URLByAppendingPathComponent(travellingName);
    const auto arriving = newFolder.URLByAppendingPathComponent(travellingName);
    return {{from, departing}, {departing, arriving}, {arriving, to}};
}
