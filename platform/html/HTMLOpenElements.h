#pragma once

#include "platform/html/HTMLTableGrid.h"
#include "platform/html/HTMLTextBuilder.h"
#include "platform/text/NSTextTable.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// A list whose items are being read.
struct HTMLOpenList {
    bool isOrdered = false;
    NSInteger nextNumber = 1;
    NSTextList::Ref list;
    /// Those of the list's items that are boxes to tick, made when the first of them is met.
    NSTextList::Ref checked;
    NSTextList::Ref open;
};

/// A table whose cells are being read.
struct HTMLOpenTable {
    std::shared_ptr<NSTextTable> table;
    HTMLTableGrid grid;
    NSColor::Ref rowBackground;
    double cellBorder = 0;
    std::optional<double> cellPadding;
};

/// An element whose end has not been read.
struct HTMLOpenElement {
    static constexpr std::size_t kNone = SIZE_MAX;

    /// Empty for an element that has ended while others in it go on.
    std::string name;
    HTMLComputedStyle style;
    HTMLTextMeaning meaning;
    HTMLParagraphContext context;
    bool isBlock = false;
    /// Whether nothing in it is read.
    bool isSuppressed = false;
    double marginBelow = 0;
    /// Of a block: how long the text was before it.
    NSUInteger startLength = 0;
    std::shared_ptr<HTMLOpenList> list;
    std::shared_ptr<HTMLOpenTable> table;
    /// Of an item: its number, and whether its marker is still to come.
    NSInteger number = 0;
    bool awaitsMarker = false;
    /// Where the item and the table stand that this is in; kNone outside of any.
    std::size_t item = kNone;
    std::size_t enclosingTable = kNone;
};

/// The elements that are open, from the page's root, which is never closed, to the innermost. Asking for one
/// by a name that none has costs nothing, however many are open.
class HTMLOpenElements {
public:
    explicit HTMLOpenElements(HTMLOpenElement root) { m_elements.push_back(std::move(root)); }

    [[nodiscard]] std::size_t size() const { return m_elements.size(); }

    [[nodiscard]] HTMLOpenElement& operator[](std::size_t place) { return m_elements[place]; }

    [[nodiscard]] const HTMLOpenElement& operator[](std::size_t place) const { return m_elements[place]; }

    [[nodiscard]] HTMLOpenElement& top() { return m_elements.back(); }

    void push(HTMLOpenElement element);
    void pop();

    /// Where the innermost element of this name stands among those before `end`; kNone when there is none, or
    /// when one of `limits` stands behind it.
    [[nodiscard]] std::size_t placeOf(std::string_view name, std::span<const std::string_view> limits,
                                      std::size_t end = HTMLOpenElement::kNone) const;

    /// Whether a block is open within the element.
    [[nodiscard]] bool holdsBlock(std::size_t place) const;

    /// Ends the formatting element at this place; those within it go on, without what it gave them.
    void endFormatting(std::size_t place);

    /// The formatting elements within the one at this place, from the outside, as far as they are kept when
    /// it ends.
    [[nodiscard]] std::vector<HTMLOpenElement> formattingWithin(std::size_t place) const;

private:
    std::vector<HTMLOpenElement> m_elements;
    std::unordered_map<std::string, std::size_t> m_countOfName;
};
