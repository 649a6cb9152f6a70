#pragma once

#include "platform/text/NSColor.h"

#include <optional>
#include <string>
#include <string_view>

/// Declarations of a style, as they are written for a light and for a dark appearance. They differ where a
/// colour does.
struct HTMLDeclarations {
    std::string light;
    std::string dark;
    /// Whether a colour is among them that is the same in both, because it has no other form.
    bool hasFixedColor = false;

    void add(std::string_view property, std::string_view value);
    void add(std::string_view property, const NSColor& color);
    /// A value with a colour at its end.
    void add(std::string_view property, std::string_view value, const NSColor& color);

    [[nodiscard]] bool empty() const { return light.empty(); }

    friend bool operator==(const HTMLDeclarations&, const HTMLDeclarations&) = default;
};

/// Whether the colour is one of those that text and its ground have by themselves. They are not written, so
/// that the reader's own colours apply, dark ones too.
[[nodiscard]] bool isDefaultHTMLColor(const NSColor& color);
