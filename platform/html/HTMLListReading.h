#pragma once

#include "platform/html/HTMLOpenElements.h"

#include <string_view>

/// Lists as they are met in a page, and the markers that their items begin with.

/// Opens the list that the element is.
void openList(HTMLOpenElement& element, const HTMLTag& tag);

/// Opens an item of the list, which will stand at `place`. Its marker comes with its first paragraph.
void openItem(HTMLOpenElement& element, const HTMLTag& tag, const std::shared_ptr<HTMLOpenList>& list,
              std::size_t place);

/// Begins the first paragraph of an item with its marker, unless that has been done.
void beginItem(HTMLOpenElement& item, HTMLTextBuilder& builder);

/// The same for an item that begins with a box to tick. False, with nothing done, when its list counts.
[[nodiscard]] bool beginCheckItem(HTMLOpenElement& item, bool isChecked, HTMLTextBuilder& builder);

/// Whether the text begins with a box and a space, which stand for the marker of a checklist, and whether the
/// box is ticked.
[[nodiscard]] std::optional<bool> boxAtStart(std::u16string_view text);
