#pragma once

#include "platform/html/HTMLStyleSheet.h"
#include "platform/html/HTMLTableGrid.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The blocks, tables and lists that are open where a page is being written. From one paragraph to the next
/// it closes those that the next is not in and opens those that it is.
///
/// Paragraphs are in one block, cell or list when their styles share the object. Checklists are an exception:
/// their items each have a list of their own, and those beside each other make one list here.
class HTMLBlockPath {
public:
    HTMLBlockPath(std::string& html, HTMLStyleSheet& sheet)
        : m_html(html)
        , m_sheet(sheet)
    {
    }

    /// Goes to a paragraph of the style. In a list, an item is opened for it with the attributes and, where
    /// it is not the next in order, the number given.
    void enter(const NSParagraphStyle& style, std::string_view itemAttributes,
               std::optional<NSInteger> itemNumber);
    void closeAll();

private:
    enum class Kind { Block, Table, Row, Cell, List, Item };

    struct Place {
        Kind kind = Kind::Block;
        /// The block, table or list.
        const void* identity = nullptr;
        NSInteger row = 0;
        NSTextBlock::Ref block{};
        NSTextList::Ref list{};
        bool isInnermost = false;
        HTMLTableGrid grid{};
        /// Of an open ordered list: the number that its next item would have.
        NSInteger nextNumber = 1;
    };

    [[nodiscard]] static std::vector<Place> placesOf(const NSParagraphStyle& style);
    [[nodiscard]] static bool isSame(const Place& open, const Place& wanted);
    [[nodiscard]] static std::string_view elementName(const Place& place);
    void open(Place place, std::string_view itemAttributes, std::optional<NSInteger> itemNumber);
    void openRow(NSInteger row);
    void openCell(const Place& place);
    void openList(Place& place);
    void openItem(const Place& place, std::string_view attributes, std::optional<NSInteger> number);
    void close();

    std::string& m_html;
    HTMLStyleSheet& m_sheet;
    std::vector<Place> m_open;
};
