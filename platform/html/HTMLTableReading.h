#pragma once

#include "platform/html/HTMLOpenElements.h"

/// Tables as they are met in a page.

/// Opens the table that the element is, which will stand at `place`.
void openTable(HTMLOpenElement& element, const HTMLTag& tag, std::size_t place);

/// Goes on to the next row of the table.
void openRow(const HTMLOpenElement& row, HTMLOpenTable& table);

/// Opens a cell in the first free place of the table's row.
void openCell(HTMLOpenElement& element, const HTMLTag& tag, const HTMLOpenElement& tableElement);
