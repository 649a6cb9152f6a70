#pragma once

#include "platform/html/HTMLComputedStyle.h"

/// How an element looks by all that is said of it.
struct HTMLCascade {
    HTMLComputedStyle style;
    /// Whether the page itself says what its margins are.
    bool hasOwnMargin = false;

    /// The element of the tag within one of the style `parent`, in a page with these rules: by what such
    /// elements are like, by its attributes, by the rules and by its own declarations, the later the
    /// stronger.
    [[nodiscard]] static HTMLCascade ofElement(const HTMLTag& tag, const HTMLComputedStyle& parent,
                                               const HTMLStyleRules& rules);
};
