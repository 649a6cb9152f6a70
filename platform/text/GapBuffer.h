#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <type_traits>
#include <vector>

/// A sequence with its free space at one movable place, the gap. Inserting and removing at the gap cost what
/// is inserted or removed; moving the gap costs the distance. Edits that follow each other through the
/// sequence, in either direction, therefore cost time in proportion to its length, all together.
template <typename Element> class GapBuffer {
public:
    [[nodiscard]] std::size_t size() const { return m_elements.size() - gapLength(); }

    /// How many elements stand before the gap.
    [[nodiscard]] std::size_t gapIndex() const { return m_gapStart; }

    [[nodiscard]] Element& operator[](std::size_t index) { return m_elements[place(index)]; }

    [[nodiscard]] const Element& operator[](std::size_t index) const { return m_elements[place(index)]; }

    void moveGap(std::size_t index)
    {
        if (index < m_gapStart) {
            const auto count = m_gapStart - index;
            std::move_backward(at(index), at(m_gapStart), at(m_gapEnd));
            m_gapStart -= count;
            m_gapEnd -= count;
        } else if (index > m_gapStart) {
            const auto count = index - m_gapStart;
            std::move(at(m_gapEnd), at(m_gapEnd + count), at(m_gapStart));
            m_gapStart += count;
            m_gapEnd += count;
        }
    }

    /// Puts `elements` before the gap, which is moved to `index` first.
    void insert(std::size_t index, std::span<const Element> elements)
    {
        moveGap(index);
        reserveGap(elements.size());
        std::copy(elements.begin(), elements.end(), at(m_gapStart));
        m_gapStart += elements.size();
    }

    /// Removes `count` elements from `index` on, where the gap is then.
    void erase(std::size_t index, std::size_t count)
    {
        moveGap(index);
        if constexpr (!std::is_trivially_destructible_v<Element>)
            std::fill(at(m_gapEnd), at(m_gapEnd + count), Element());
        m_gapEnd += count;
    }

    void reserve(std::size_t count)
    {
        if (count > size())
            growGap(count - size());
    }

    /// All elements in one piece. Moves the gap to the end.
    [[nodiscard]] std::span<const Element> contiguous()
    {
        moveGap(size());
        return {m_elements.data(), m_gapStart};
    }

private:
    [[nodiscard]] std::size_t gapLength() const { return m_gapEnd - m_gapStart; }

    [[nodiscard]] std::size_t place(std::size_t index) const
    {
        return index < m_gapStart ? index : index + gapLength();
    }

    [[nodiscard]] static std::ptrdiff_t offset(std::size_t place)
    {
        return static_cast<std::ptrdiff_t>(place);
    }

    [[nodiscard]] auto at(std::size_t place) { return m_elements.begin() + offset(place); }

    void reserveGap(std::size_t count)
    {
        if (count > gapLength())
            growGap(std::max(count, size() / 2));
    }

    void growGap(std::size_t count)
    {
        std::vector<Element> elements;
        elements.reserve(size() + count);
        elements.insert(elements.end(), std::make_move_iterator(m_elements.begin()),
                        std::make_move_iterator(at(m_gapStart)));
        elements.resize(m_gapStart + count);
        elements.insert(elements.end(), std::make_move_iterator(at(m_gapEnd)),
                        std::make_move_iterator(m_elements.end()));
        m_elements = std::move(elements);
        m_gapEnd = m_gapStart + count;
    }

    std::vector<Element> m_elements;
    std::size_t m_gapStart = 0;
    std::size_t m_gapEnd = 0;
};
