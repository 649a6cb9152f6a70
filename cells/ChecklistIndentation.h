#pragma once

#include "platform/foundation/NSRange.h"

/// What a checklist cell asks its attachment: how far its item is indented. The attachment kinds stand above
/// the cells, so this is all that the cells know of them.
class ChecklistIndentation {
public:
    virtual ~ChecklistIndentation() = default;

    /// 0 for the top level.
    [[nodiscard]] virtual NSUInteger indentationLevel() const = 0;

protected:
    ChecklistIndentation() = default;
    ChecklistIndentation(const ChecklistIndentation&) = default;
    ChecklistIndentation& operator=(const ChecklistIndentation&) = default;
};
