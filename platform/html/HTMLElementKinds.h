#pragma once

#include <algorithm>
#include <span>
#include <string_view>

/// What readers of a page's structure must know of elements by name. Names are in lower case.

/// Elements that hold nothing and have no end tag.
[[nodiscard]] bool isVoidElement(std::string_view name);
/// Elements whose content is passed over as it stands.
[[nodiscard]] bool isSkippedElement(std::string_view name);
/// Elements that go on in the next paragraph when one ends within them.
[[nodiscard]] bool isFormattingElement(std::string_view name);
/// The parts of a table: its groups of rows, its rows and cells.
[[nodiscard]] bool isTablePart(std::string_view name);
[[nodiscard]] bool isCellElement(std::string_view name);
[[nodiscard]] bool isListElement(std::string_view name);
[[nodiscard]] bool isHeadingElement(std::string_view name);

[[nodiscard]] inline bool isOneOf(std::string_view name, std::span<const std::string_view> names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}
