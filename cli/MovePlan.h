#pragma once

#include "platform/foundation/NSURL.h"

#include <vector>

/// One move request: within one folder it renames, to another folder it keeps the name.
struct MoveStep {
    NSURL from;
    NSURL to;

    friend bool operator==(const MoveStep&, const MoveStep&) = default;
};

/// The requests that bring an item from `from` to `to`: one where only the name or only the folder changes.
/// Else it travels under a name of its own, as each step replaces what is indexed where it leads: under its
/// old name it could replace what has that name in the new folder.
[[nodiscard]] std::vector<MoveStep> movePlan(const NSURL& from, const NSURL& to);
