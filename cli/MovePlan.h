#pragma once

#include "platform/foundation/NSURL.h"

#include <functional>
#include <vector>

/// One move request: within one folder it renames, to another folder it keeps the name.
struct MoveStep {
    NSURL from;
    NSURL to;

    friend bool operator==(const MoveStep&, const MoveStep&) = default;
};

/// The requests that bring an item from `from` to `to`: one where only the name or only the folder changes,
/// else a move and a renaming. A step replaces what is indexed where it leads, so on the way no step leads to
/// what `isIndexed` knows: if the usual stop, the new folder under the old name, is taken, the renaming comes
/// first, and if that is taken too, the item travels under a name of its own.
[[nodiscard]] std::vector<MoveStep> movePlan(const NSURL& from, const NSURL& to,
                                             const std::function<bool(const NSURL&)>& isIndexed);
