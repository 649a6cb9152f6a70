#include "platform/rtf/RTFWords.h"

#include <algorithm>
#include <array>

namespace {

using enum RTFAction;

constexpr RTFWord kUnknownWord{};

// In the order of their bytes, for the search.
constexpr auto kWords = std::to_array<RTFWord>({
    {"NeXTGraphic", AttachmentGroup},
    {"af", AssociatedFont},
    {"annotation", SkipGroup},
    {"ansicpg", AnsiCodePage},
    {"atnauthor", SkipGroup},
    {"atndate", SkipGroup},
    {"atnicn", SkipGroup},
    {"atnid", SkipGroup},
    {"atnparent", SkipGroup},
    {"atnref", SkipGroup},
    {"atntime", SkipGroup},
    {"atrfend", SkipGroup},
    {"atrfstart", SkipGroup},
    {"author", InformationEntry, 0, "author"},
    {"bkmkend", SkipGroup},
    {"bkmkstart", SkipGroup},
    {"bullet", Character, U'\u2022'},
    {"cell", LineEnd},
    {"colortbl", SkipGroup},
    {"column", Character, U'\f'},
    {"cpg", FontCodePage},
    {"dbch", AssociatedFontRun},
    {"deff", DefaultFont},
    {"do", SkipGroup},
    {"doccomm", InformationEntry, 0, "description"},
    {"emdash", Character, U'\u2014'},
    {"emspace", Character, U'\u2003'},
    {"endash", Character, U'\u2013'},
    {"enspace", Character, U'\u2002'},
    {"f", Font},
    {"fcharset", FontCharset},
    {"field", InlineGroup},
    {"filetbl", SkipGroup},
    {"fldinst", SkipGroup},
    {"fldrslt", InlineGroup},
    {"fonttbl", FontTable},
    {"footer", TextGroup},
    {"footerf", TextGroup},
    {"footerl", TextGroup},
    {"footerr", TextGroup},
    {"footnote", TextGroup},
    {"ftncn", SkipGroup},
    {"ftnsep", SkipGroup},
    {"ftnsepc", SkipGroup},
    {"header", TextGroup},
    {"headerf", TextGroup},
    {"headerl", TextGroup},
    {"headerr", TextGroup},
    {"hich", MainFontRun},
    {"info", InformationGroup},
    {"keywords", InformationEntry, 0, "keywords"},
    {"ldblquote", Character, U'\u201C'},
    {"line", Character, U'\u2028'},
    {"listtext", InlineGroup},
    {"loch", MainFontRun},
    {"lquote", Character, U'\u2018'},
    {"ltrch", MainFontRun},
    {"ltrmark", Character, U'\u200E'},
    {"mac", MacintoshCharacters},
    {"nestcell", LineEnd},
    {"nonesttables", SkipGroup},
    {"nonshppict", SkipGroup},
    {"objdata", SkipGroup},
    {"page", Character, U'\f'},
    {"par", LineEnd},
    {"pc", PCCharacters},
    {"pca", PCInternationalCharacters},
    {"pict", SkipGroup},
    {"plain", Plain},
    {"pntext", InlineGroup},
    {"pntxta", SkipGroup},
    {"pntxtb", SkipGroup},
    {"qmspace", Character, U'\u2005'},
    {"rdblquote", Character, U'\u201D'},
    {"result", InlineGroup},
    {"revtbl", SkipGroup},
    {"rquote", Character, U'\u2019'},
    {"rtlch", AssociatedFontRun},
    {"rtlmark", Character, U'\u200F'},
    {"rxe", SkipGroup},
    {"sect", LineEnd},
    {"shpinst", InlineGroup},
    {"shprslt", SkipGroup},
    {"shptxt", TextGroup},
    {"sp", SkipGroup},
    {"stylesheet", SkipGroup},
    {"subject", InformationEntry, 0, "subject"},
    {"tab", Character, U'\t'},
    {"tc", SkipGroup},
    {"tcn", SkipGroup},
    {"template", SkipGroup},
    {"title", InformationEntry, 0, "title"},
    {"txe", SkipGroup},
    {"u", UnicodeCharacter},
    {"uc", UnicodeSkipCount},
    {"ud", UnicodeAlternative},
    {"upr", AlternativesGroup},
    {"v", Hidden},
    {"xe", SkipGroup},
    {"zwj", Character, U'\u200D'},
    {"zwnj", Character, U'\u200C'},
});

constexpr bool isBefore(const RTFWord& left, const RTFWord& right)
{
    return left.name < right.name;
}

static_assert(std::is_sorted(kWords.begin(), kWords.end(), isBefore));

} // namespace

const RTFWord& meaningOfRTFWord(std::string_view name)
{
    const auto* const found
        = std::lower_bound(kWords.begin(), kWords.end(), name,
                           [](const RTFWord& word, std::string_view key) { return word.name < key; });
    return found != kWords.end() && found->name == name ? *found : kUnknownWord;
}

std::span<const RTFWord> textWords()
{
    return kWords;
}
