#include "cli/MovePlan.h"

#include "platform/foundation/NSUUID.h"

std::vector<MoveStep> movePlan(const NSURL& from, const NSURL& to)
{
    const auto oldFolder = from.URLByDeletingLastPathComponent();
    const auto newFolder = to.URLByDeletingLastPathComponent();
    if (oldFolder == newFolder || from.lastPathComponent() == to.lastPathComponent())
        return {{from, to}};
    const auto travellingName = NSUUID::UUIDString();
    const auto departing = oldFolder.URLByAppendingPathComponent(travellingName);
    const auto arriving = newFolder.URLByAppendingPathComponent(travellingName);
    return {{from, departing}, {departing, arriving}, {arriving, to}};
}
