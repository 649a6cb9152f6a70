#include "platform/word/WordAttributeSets.h"

#include <unordered_map>

std::vector<WordAttributeSet> wordAttributeSets(const NSAttributedString& text, NSRange range)
{
    std::vector<WordAttributeSet> sets;
    std::unordered_map<const NSAttributes*, std::size_t> places;
    text.enumerateAttributesInRange(range, {.longestEffectiveRangeNotRequired = true},
                                    [&](const NSAttributes& attributes, NSRange run, bool& /*stop*/) {
                                        const auto [place, isNew]
                                            = places.try_emplace(&attributes, sets.size());
                                        if (isNew)
                                            sets.push_back({&attributes, 0});
                                        sets[place->second].length += run.length;
                                    });
    return sets;
}
