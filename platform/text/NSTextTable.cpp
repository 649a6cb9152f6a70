#include "platform/text/NSTextTable.h"

#include "platform/text/CoderValues.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace {

/// Rows, columns and spans lie far below this in any table; more is damage.
constexpr std::int64_t kGreatestCount = 1'000'000;

NSInteger decodeCount(NSCoder& coder, std::string_view key, std::int64_t least)
{
    return std::clamp(coder.decodeIntegerForKey(key), least, kGreatestCount);
}

} // namespace

const NSClass& NSTextTable::classObject()
{
    static const NSClass object{"NSTextTable", &NSTextBlock::classObject(), &NSTextTable::initWithCoder};
    return object;
}

const NSClass& NSTextTable::classForCoder() const
{
    return classObject();
}

void NSTextTable::encodeWithCoder(NSCoder& coder) const
{
    NSTextBlock::encodeWithCoder(coder);
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(m_numberOfColumns), "NSNumberOfColumns");
    encodeIntegerUnlessZero(coder, static_cast<std::int64_t>(m_layoutAlgorithm), "NSLayoutAlgorithm");
    encodeTrue(coder, m_collapsesBorders, "NSCollapsesBorders");
    encodeTrue(coder, m_hidesEmptyCells, "NSHidesEmptyCells");
}

NSAny NSTextTable::initWithCoder(NSCoder& coder)
{
    const auto table = std::make_shared<NSTextTable>();
    table->decodeFromCoder(coder);
    table->m_numberOfColumns = static_cast<NSUInteger>(decodeCount(coder, "NSNumberOfColumns", 0));
    table->m_layoutAlgorithm = coder.decodeIntegerForKey("NSLayoutAlgorithm") == 1
        ? NSTextTableLayoutAlgorithm::Fixed
        : NSTextTableLayoutAlgorithm::Automatic;
    table->m_collapsesBorders = decodeFlag(coder, "NSCollapsesBorders");
    table->m_hidesEmptyCells = decodeFlag(coder, "NSHidesEmptyCells");
    return Ref(table);
}

NSTextTableBlock::NSTextTableBlock(NSTextTable::Ref table, NSInteger startingRow, NSInteger rowSpan,
                                   NSInteger startingColumn, NSInteger columnSpan)
    : m_table(std::move(table))
    , m_startingRow(startingRow)
    , m_rowSpan(rowSpan)
    , m_startingColumn(startingColumn)
    , m_columnSpan(columnSpan)
{
}

const NSClass& NSTextTableBlock::classObject()
{
    static const NSClass object{"NSTextTableBlock", &NSTextBlock::classObject(),
                                &NSTextTableBlock::initWithCoder};
    return object;
}

const NSClass& NSTextTableBlock::classForCoder() const
{
    return classObject();
}

void NSTextTableBlock::encodeWithCoder(NSCoder& coder) const
{
    NSTextBlock::encodeWithCoder(coder);
    coder.encodeObject(NSAny(m_table), "NSTable");
    encodeIntegerUnlessZero(coder, m_startingRow, "NSStartingRow");
    encodeIntegerUnlessZero(coder, m_startingColumn, "NSStartingColumn");
    if (m_rowSpan != 1)
        coder.encodeInteger(m_rowSpan, "NSRowSpan");
    if (m_columnSpan != 1)
        coder.encodeInteger(m_columnSpan, "NSColumnSpan");
}

NSAny NSTextTableBlock::initWithCoder(NSCoder& coder)
{
    auto table = coder.decodeObjectOfClass(NSTextTable::classObject(), "NSTable").object<NSTextTable>();
    const auto block = std::make_shared<NSTextTableBlock>(
        std::move(table), decodeCount(coder, "NSStartingRow", 0), decodeCount(coder, "NSRowSpan", 1),
        decodeCount(coder, "NSStartingColumn", 0), decodeCount(coder, "NSColumnSpan", 1));
    block->decodeFromCoder(coder);
    return Ref(block);
}
