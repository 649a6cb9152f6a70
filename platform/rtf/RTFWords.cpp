#include "platform/rtf/RTFWords.h"

#include <array>
#include <unordered_map>

namespace {

using enum RTFAction;

struct CharacterWord {
    std::string_view name;
    RTFCharacterAction action;
};

constexpr auto kCharacterWords = std::to_array<CharacterWord>({
    {"af", {AssociatedFont}},
    {"ansicpg", {AnsiCodePage}},
    {"bullet", {Character, U'\u2022'}},
    {"column", {Character, U'\f'}},
    {"cpg", {FontCodePage}},
    {"dbch", {AssociatedFontRun}},
    {"deff", {DefaultFont}},
    {"emdash", {Character, U'\u2014'}},
    {"emspace", {Character, U'\u2003'}},
    {"endash", {Character, U'\u2013'}},
    {"enspace", {Character, U'\u2002'}},
    {"f", {Font}},
    {"fcharset", {FontCharset}},
    {"hich", {MainFontRun}},
    {"ldblquote", {Character, U'\u201C'}},
    {"line", {Character, U'\u2028'}},
    {"loch", {MainFontRun}},
    {"lquote", {Character, U'\u2018'}},
    {"ltrch", {MainFontRun}},
    {"ltrmark", {Character, U'\u200E'}},
    {"mac", {CodePage, 10000}},
    {"nesttableprops", {OpenGroup}},
    {"page", {Character, U'\f'}},
    {"pc", {CodePage, 437}},
    {"pca", {CodePage, 850}},
    {"plain", {Plain}},
    {"qmspace", {Character, U'\u2005'}},
    {"rdblquote", {Character, U'\u201D'}},
    {"result", {OpenGroup}},
    {"rquote", {Character, U'\u2019'}},
    {"rtlch", {AssociatedFontRun}},
    {"rtlmark", {Character, U'\u200F'}},
    {"shpinst", {OpenGroup}},
    {"shppict", {OpenGroup}},
    {"tab", {Character, U'\t'}},
    {"u", {UnicodeCharacter}},
    {"uc", {UnicodeSkipCount}},
    {"ud", {UnicodeAlternative}},
    {"upr", {AlternativesGroup}},
    {"v", {Hidden}},
    {"zwj", {Character, U'\u200D'}},
    {"zwnj", {Character, U'\u200C'}},
});

struct BodyWord {
    std::string_view name;
    RTFBodyAction action;
};

constexpr auto kBodyWords = std::to_array<BodyWord>({
    {"cell", RTFBodyAction::CellEnd},
    {"field", RTFBodyAction::Field},
    {"fldrslt", RTFBodyAction::FieldResult},
    {"kerning", RTFBodyAction::KernSwitch},
    {"nestcell", RTFBodyAction::NestedCellEnd},
    {"nestrow", RTFBodyAction::NestedRowEnd},
    {"par", RTFBodyAction::ParagraphEnd},
    {"pard", RTFBodyAction::ParagraphStart},
    {"row", RTFBodyAction::RowEnd},
    {"sect", RTFBodyAction::ParagraphEnd},
    {"trowd", RTFBodyAction::RowStart},
});

struct DestinationWord {
    std::string_view name;
    RTFDestination destination;
};

constexpr auto kDestinationWords = std::to_array<DestinationWord>({
    {"NeXTGraphic", RTFDestination::Attachment},
    {"colortbl", RTFDestination::ColorTable},
    {"expandedcolortbl", RTFDestination::ExpandedColorTable},
    {"fldinst", RTFDestination::FieldInstruction},
    {"fonttbl", RTFDestination::FontTable},
    {"footer", RTFDestination::Aside},
    {"footerf", RTFDestination::Aside},
    {"footerl", RTFDestination::Aside},
    {"footerr", RTFDestination::Aside},
    {"footnote", RTFDestination::Aside},
    {"header", RTFDestination::Aside},
    {"headerf", RTFDestination::Aside},
    {"headerl", RTFDestination::Aside},
    {"headerr", RTFDestination::Aside},
    {"info", RTFDestination::Information},
    {"listoverridetable", RTFDestination::ListNumberTable},
    {"listtable", RTFDestination::ListTable},
    {"listtext", RTFDestination::ListMarker},
    {"pict", RTFDestination::Picture},
    {"pntext", RTFDestination::ListMarker},
    {"shptxt", RTFDestination::TextBox},
});

/// Their groups hold nothing that anybody reads.
constexpr auto kSkippedGroups = std::to_array<std::string_view>({
    "annotation", "atnauthor", "atndate",   "atnicn",    "atnid",        "atnparent",  "atnref",
    "atntime",    "atrfend",   "atrfstart", "bkmkend",   "bkmkstart",    "do",         "filetbl",
    "ftncn",      "ftnsep",    "ftnsepc",   "generator", "nonesttables", "nonshppict", "objdata",
    "pntxta",     "pntxtb",    "revtbl",    "rxe",       "shprslt",      "sp",         "stylesheet",
    "tc",         "tcn",       "template",  "txe",       "xe",
});

using Words = std::unordered_map<std::string_view, RTFWord>;

Words makeWords()
{
    Words words;
    for (const auto& word : kCharacterWords)
        words.emplace(word.name, word.action);
    for (const auto& word : kBodyWords)
        words.emplace(word.name, word.action);
    for (const auto& word : kDestinationWords)
        words.emplace(word.name, word.destination);
    for (const auto name : kSkippedGroups)
        words.emplace(name, RTFDestination::Nothing);
    for (const auto& word : characterWords())
        words.emplace(word.name, RTFFormatChange(word.change));
    for (const auto& word : paragraphWords())
        words.emplace(word.name, RTFFormatChange(word.change));
    for (const auto& word : rowWords())
        words.emplace(word.name, RTFFormatChange(word.change));
    for (const auto& word : documentWords())
        words.emplace(word.name, RTFFormatChange(word.change));
    return words;
}

} // namespace

const RTFWord& meaningOfRTFWord(std::string_view name)
{
    static const Words words = makeWords();
    static const RTFWord none;
    const auto found = words.find(name);
    return found == words.end() ? none : found->second;
}
