#include "platform/text/AttributeRuns.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

bool haveEqualValues(const SharedAttributes& one, const SharedAttributes& other)
{
    return one == other || *one == *other;
}

std::size_t hashOf(const NSAttributes& attributes)
{
    std::size_t hash = attributes.size();
    for (const auto& [name, value] : attributes)
        hash = hash * 1099511628211U + (std::hash<std::u16string>()(name) ^ value.hash());
    return hash;
}

} // namespace

SharedAttributes AttributeCache::shared(NSAttributes attributes)
{
    m_slots.resize(kSlotCount);
    auto& slot = m_slots[hashOf(attributes) % kSlotCount];
    if (!slot || *slot != attributes)
        slot = std::make_shared<const NSAttributes>(std::move(attributes));
    return slot;
}

NSUInteger AttributeRuns::startOf(std::size_t index) const
{
    if (index == m_runs.size())
        return m_length;
    const auto position = m_runs[index].position;
    return index < m_runs.gapIndex() ? position : m_length - position;
}

NSRange AttributeRuns::rangeAt(std::size_t index) const
{
    const auto start = startOf(index);
    return {start, startOf(index + 1) - start};
}

bool AttributeRuns::holds(std::size_t index, NSUInteger location) const
{
    return index < m_runs.size() && startOf(index) <= location && location < startOf(index + 1);
}

std::size_t AttributeRuns::indexAt(NSUInteger location) const
{
    const auto hint = m_hint.get();
    for (const auto near : {hint, hint + 1, hint - 1}) {
        if (holds(near, location)) {
            m_hint.set(near);
            return near;
        }
    }
    std::size_t low = 0;
    auto high = m_runs.size();
    while (high - low > 1) {
        const auto middle = low + (high - low) / 2;
        (startOf(middle) <= location ? low : high) = middle;
    }
    m_hint.set(low);
    return low;
}

void AttributeRuns::moveGap(std::size_t index)
{
    const auto before = m_runs.gapIndex();
    m_runs.moveGap(index);
    for (auto crossed = std::min(before, index); crossed < std::max(before, index); ++crossed)
        m_runs[crossed].position = m_length - m_runs[crossed].position;
}

void AttributeRuns::append(NSUInteger location, const SharedAttributes& attributes)
{
    const Run run{location, attributes};
    m_runs.insert(m_runs.gapIndex(), std::span(&run, 1));
}

std::size_t AttributeRuns::split(NSUInteger location)
{
    if (location >= m_length)
        return m_runs.size();
    const auto index = indexAt(location);
    if (startOf(index) == location)
        return index;
    const auto attributes = m_runs[index].attributes;
    moveGap(index + 1);
    append(location, attributes);
    return index + 1;
}

/// Removes the units of the range and leaves the gap where they were; the index of the run behind it.
std::size_t AttributeRuns::eraseRange(NSRange range)
{
    const auto first = split(range.location);
    const auto last = split(NSMaxRange(range));
    moveGap(first);
    m_runs.erase(first, last - first);
    m_length -= range.length;
    return first;
}

void AttributeRuns::replace(NSRange range, NSUInteger length, const SharedAttributes& attributes)
{
    const auto index = eraseRange(range);
    m_length += length;
    if (length > 0)
        append(range.location, attributes);
    mergeNeighbours(index, index + 2);
}

void AttributeRuns::replace(NSRange range, const AttributeRuns& other, NSRange otherRange)
{
    const auto index = eraseRange(range);
    m_length += otherRange.length;
    auto added = index;
    const auto end = NSMaxRange(otherRange);
    for (auto location = otherRange.location; location < end; ++added) {
        const auto run = other.indexAt(location);
        append(range.location + location - otherRange.location, other.attributesAt(run));
        location = NSMaxRange(other.rangeAt(run));
    }
    mergeNeighbours(index, added + 1);
}

void AttributeRuns::transform(NSRange range, const Change& change)
{
    if (range.length == 0)
        return;
    const auto first = split(range.location);
    const auto last = split(NSMaxRange(range));
    for (auto index = first; index < last; ++index) {
        auto& run = m_runs[index];
        run.attributes = change(run.attributes);
    }
    mergeNeighbours(first, last + 1);
}

void AttributeRuns::mergeNeighbours(std::size_t first, std::size_t last)
{
    auto kept = first > 0 ? first - 1 : 0;
    const auto end = std::min(last, m_runs.size());
    for (auto index = kept + 1; index < end; ++index) {
        if (haveEqualValues(m_runs[kept].attributes, m_runs[index].attributes))
            continue;
        if (++kept == index)
            continue;
        const auto start = startOf(index);
        m_runs[kept].attributes = m_runs[index].attributes;
        m_runs[kept].position = kept < m_runs.gapIndex() ? start : m_length - start;
    }
    const auto removed = end > kept + 1 ? end - kept - 1 : 0;
    if (removed == 0)
        return;
    moveGap(kept + 1);
    m_runs.erase(kept + 1, removed);
}
