#include "markdown/MarkdownEmphasis.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

class Pairing {
public:
    Pairing(std::span<MarkdownDelimiter> delimiters, std::vector<MarkdownStyleRange>& ranges)
        : m_delimiters(delimiters)
        , m_ranges(ranges)
    {
    }

    void run()
    {
        for (std::size_t index = 0; index < m_delimiters.size(); ++index) {
            auto& delimiter = m_delimiters[index];
            while (delimiter.canClose && delimiter.count > 0 && close(delimiter)) { }
            if (delimiter.canOpen && delimiter.count > 0)
                m_open.push_back(index);
        }
    }

private:
    /// Delimiters of one key match the same openers.
    static std::size_t keyOf(const MarkdownDelimiter& closer)
    {
        const std::size_t sign = closer.sign == u'*' ? 0 : closer.sign == u'_' ? 1 : 2;
        // Tildes match by their number, the others by its rest.
        const auto rest = sign == 2 ? std::min<std::size_t>(closer.length, 2) : closer.length % 3;
        return (sign * 2 + (closer.canOpen ? 1 : 0)) * 3 + rest;
    }

    /// The number of signs decides when one of the two could be either: *a**b* is one emphasis.
    static bool match(const MarkdownDelimiter& opener, const MarkdownDelimiter& closer)
    {
        if (opener.sign != closer.sign)
            return false;
        if (opener.sign == u'~')
            return opener.count == closer.count;
        const bool isEither = opener.canClose || closer.canOpen;
        return !isEither || (opener.length + closer.length) % 3 != 0
            || (opener.length % 3 == 0 && closer.length % 3 == 0);
    }

    /// Makes a pair with the nearest opener. False when there is none.
    bool close(MarkdownDelimiter& closer)
    {
        auto& lowest = m_lowest.at(keyOf(closer));
        for (auto place = m_open.size(); place > lowest; --place) {
            auto& opener = m_delimiters[m_open[place - 1]];
            if (!match(opener, closer))
                continue;
            m_open.resize(place);
            addRange(opener, closer);
            if (opener.count == 0)
                m_open.pop_back();
            forgetAbove(m_open.size());
            return true;
        }
        lowest = m_open.size();
        return false;
    }

    void addRange(MarkdownDelimiter& opener, MarkdownDelimiter& closer)
    {
        const bool isTilde = opener.sign == u'~';
        const std::size_t used = isTilde ? opener.count : opener.count >= 2 && closer.count >= 2 ? 2 : 1;
        const auto style = isTilde ? MarkdownStyle::Strike
            : used == 2            ? MarkdownStyle::Strong
                                   : MarkdownStyle::Emphasis;
        m_ranges.push_back({style, opener.piece + 1, closer.piece});
        opener.count -= used;
        closer.count -= used;
    }

    void forgetAbove(std::size_t count)
    {
        for (auto& lowest : m_lowest)
            lowest = std::min(lowest, count);
    }

    std::span<MarkdownDelimiter> m_delimiters;
    std::vector<MarkdownStyleRange>& m_ranges;
    /// Delimiters that wait for their other half.
    std::vector<std::size_t> m_open;
    /// By key: below this place among the open ones there is no match.
    std::array<std::size_t, 18> m_lowest{};
};

} // namespace

void pairDelimiters(std::span<MarkdownDelimiter> delimiters, std::vector<MarkdownStyleRange>& ranges)
{
    Pairing(delimiters, ranges).run();
}
