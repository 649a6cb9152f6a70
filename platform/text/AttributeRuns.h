#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSRange.h"
#include "platform/text/GapBuffer.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string_view>

using NSAttributes = NSAny::Dictionary;
/// Runs share their attributes; never null.
using SharedAttributes = std::shared_ptr<const NSAttributes>;

/// Attributes of equal value as one object, as far as they were met not long ago. Texts repeat few
/// combinations.
class AttributeCache {
public:
    [[nodiscard]] SharedAttributes shared(NSAttributes attributes);

private:
    static constexpr std::size_t kSlotCount = 512;

    std::vector<SharedAttributes> m_slots;
};

/// Where a search ended last. Threads that read one text may each write it: whichever place stands is only
/// where the next search begins.
class SearchHint {
public:
    SearchHint() = default;

    SearchHint(const SearchHint& other)
        : m_index(other.get())
    {
    }

    SearchHint& operator=(const SearchHint& other)
    {
        set(other.get());
        return *this;
    }

    ~SearchHint() = default;

    [[nodiscard]] std::size_t get() const { return m_index.load(std::memory_order_relaxed); }

    void set(std::size_t index) { m_index.store(index, std::memory_order_relaxed); }

private:
    std::atomic<std::size_t> m_index = 0;
};

/// The attributes of every unit of a text, as runs in the text's order. Neighbours differ in value.
///
/// Each run is kept with where it starts: those before the buffer's gap from the text's start, those behind
/// it from the text's end. A change of length at the gap therefore moves no run.
class AttributeRuns {
public:
    [[nodiscard]] NSUInteger length() const { return m_length; }

    [[nodiscard]] std::size_t count() const { return m_runs.size(); }

    /// The run that holds a location, which must lie before the end. Quick near the location asked for last.
    [[nodiscard]] std::size_t indexAt(NSUInteger location) const;
    [[nodiscard]] NSRange rangeAt(std::size_t index) const;

    [[nodiscard]] const SharedAttributes& attributesAt(std::size_t index) const
    {
        return m_runs[index].attributes;
    }

    /// Replaces the range by `length` units with `attributes`.
    void replace(NSRange range, NSUInteger length, const SharedAttributes& attributes);
    /// Replaces the range by a copy of `other`.
    void replace(NSRange range, const AttributeRuns& other, NSRange otherRange);

    using Change = std::function<SharedAttributes(const SharedAttributes&)>;
    /// Gives every run of the range the attributes that `change` makes of its own.
    void transform(NSRange range, const Change& change);

private:
    struct Run {
        NSUInteger position = 0;
        SharedAttributes attributes;
    };

    [[nodiscard]] NSUInteger startOf(std::size_t index) const;
    [[nodiscard]] bool holds(std::size_t index, NSUInteger location) const;
    void moveGap(std::size_t index);
    /// Makes a run start at `location`; its index.
    std::size_t split(NSUInteger location);
    void append(NSUInteger location, const SharedAttributes& attributes);
    std::size_t eraseRange(NSRange range);
    /// Joins equal neighbours among the runs from the one before `first` up to `last`.
    void mergeNeighbours(std::size_t first, std::size_t last);

    GapBuffer<Run> m_runs;
    NSUInteger m_length = 0;
    mutable SearchHint m_hint;
};
