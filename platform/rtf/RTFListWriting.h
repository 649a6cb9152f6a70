#pragma once

#include "platform/rtf/RTFOutput.h"
#include "platform/text/NSParagraphStyle.h"

#include <cstdint>
#include <map>
#include <vector>

/// The lists of a document that is being written. A list of RTF has levels: an outer list and one inner list
/// of each depth. A second inner list of the same outer one is therefore of a list of its own, which has a
/// copy of the outer one.
class RTFListWriting {
public:
    /// The number of a list, from 1, and the level in it, from 0. The lists must not be empty; those deeper
    /// than RTF's nine levels count as the ninth.
    struct Place {
        std::int32_t list = 0;
        std::int32_t level = 0;
    };

    [[nodiscard]] Place placeOf(const NSParagraphStyle::TextLists& lists);

    /// Both tables; nothing without lists.
    void write(RTFOutput& output) const;

private:
    using Path = std::vector<const NSTextList*>;

    [[nodiscard]] std::size_t listToExtend(const Path& path);

    std::vector<NSParagraphStyle::TextLists> m_lists;
    /// By the lists from the outermost to the level's own.
    std::map<Path, std::size_t> m_indices;
};
