#include "platform/layout/PageCuts.h"

#include <algorithm>
#include <cstddef>

namespace {

/// Lines may be this much higher than the page: sums of heights are not exact.
constexpr double kTolerance = 0.01;

/// Adds the characters, which are not before those that were added already.
void add(std::vector<NSRange>& ranges, NSRange range)
{
    if (ranges.empty() || NSMaxRange(ranges.back()) != range.location)
        return ranges.push_back(range);
    ranges.back().length += range.length;
}

/// Fills one page after the other.
class PageCutter {
public:
    PageCutter(std::vector<PageLine> lines, double height)
        : m_lines(std::move(lines))
        , m_height(height)
    {
        std::stable_sort(m_lines.begin(), m_lines.end(),
                         [](const PageLine& one, const PageLine& other) { return one.top < other.top; });
    }

    std::vector<TextPages::Page> pages()
    {
        std::vector<TextPages::Page> pages;
        while (!m_waiting.empty() || m_next < m_lines.size())
            pages.push_back(nextPage());
        return pages;
    }

private:
    /// The lines that begin on a page which begins there: those that waited, and the next ones.
    std::vector<PageLine> linesFrom(double top)
    {
        auto lines = std::move(m_waiting);
        m_waiting.clear();
        for (; m_next < m_lines.size() && m_lines[m_next].top < top + m_height; ++m_next)
            lines.push_back(m_lines[m_next]);
        return lines;
    }

    TextPages::Page nextPage()
    {
        TextPages::Page page;
        // Those that waited begin above all that follow.
        page.top = m_waiting.empty() ? m_lines[m_next].top : m_waiting.front().top;
        const auto limit = page.top + m_height + kTolerance;
        std::vector<PageLine> taken;
        for (const auto& line : linesFrom(page.top)) {
            const auto isTooHigh = line.bottom - line.top > m_height && line.top == page.top;
            if (line.bottom <= limit || isTooHigh)
                taken.push_back(line);
            else
                m_waiting.push_back(line);
        }
        std::sort(taken.begin(), taken.end(), [](const PageLine& one, const PageLine& other) {
            return one.range.location < other.range.location;
        });
        for (const auto& line : taken) {
            add(page.ranges, line.range);
            page.bottom = std::max(page.bottom, std::min(line.bottom, limit));
        }
        return page;
    }

    std::vector<PageLine> m_lines;
    double m_height;
    std::vector<PageLine> m_waiting;
    std::size_t m_next = 0;
};

} // namespace

std::vector<TextPages::Page> cutIntoPages(std::vector<PageLine> lines, double height)
{
    return PageCutter(std::move(lines), height).pages();
}
