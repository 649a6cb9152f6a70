#pragma once

#include "platform/rtf/RTFDestination.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// What a group inherits and gives back at its end, as far as characters are told by it.
struct RTFGroup {
    RTFDestination destination = RTFDestination::Text;
    /// What the second of two alternatives goes to.
    RTFDestination alternative = RTFDestination::Text;
    bool isHidden = false;
    bool usesAssociatedFont = false;
    std::int32_t standIns = 1;
    /// The document's own when none.
    std::optional<std::int32_t> font;
    std::optional<std::int32_t> associatedFont;
    /// The destination that the group itself began; not inherited.
    std::optional<RTFDestination> begun;
};

/// The groups that are open. Deeper groups than the limit share the state of the deepest one that has its
/// own, and are counted.
class RTFGroups {
public:
    [[nodiscard]] RTFGroup& current() { return m_current; }

    [[nodiscard]] const RTFGroup& current() const { return m_current; }

    [[nodiscard]] bool isOutside() const { return m_outer.empty() && m_uncounted == 0; }

    /// Whether the group has a state of its own.
    bool begin();
    /// The state of the group that ended; none for one that had no state of its own.
    std::optional<RTFGroup> end();

private:
    RTFGroup m_current;
    std::vector<RTFGroup> m_outer;
    std::size_t m_uncounted = 0;
};
