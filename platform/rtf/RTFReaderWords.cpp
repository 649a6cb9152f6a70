#include "platform/rtf/RTFReaderWords.h"

#include <array>
#include <unordered_map>

namespace {

using enum RTFReaderAction;

struct ActionWord {
    std::string_view name;
    RTFReaderAction action;
};

constexpr std::array kActionWords{
    ActionWord{"fonttbl", FontTable},
    ActionWord{"colortbl", ColorTable},
    ActionWord{"expandedcolortbl", ExpandedColorTable},
    ActionWord{"listtable", ListTable},
    ActionWord{"listoverridetable", ListNumberTable},
    ActionWord{"info", Information},
    ActionWord{"field", Field},
    ActionWord{"fldinst", FieldInstruction},
    ActionWord{"fldrslt", FieldResult},
    ActionWord{"listtext", ListMarker},
    ActionWord{"pntext", ListMarker},
    ActionWord{"NeXTGraphic", Attachment},
    ActionWord{"pict", Picture},
    ActionWord{"shppict", OpenGroup},
    ActionWord{"shptxt", OpenGroup},
    ActionWord{"nesttableprops", OpenGroup},
    ActionWord{"generator", SkipGroup},
    ActionWord{"footnote", SkipGroup},
    ActionWord{"header", SkipGroup},
    ActionWord{"headerl", SkipGroup},
    ActionWord{"headerr", SkipGroup},
    ActionWord{"headerf", SkipGroup},
    ActionWord{"footer", SkipGroup},
    ActionWord{"footerl", SkipGroup},
    ActionWord{"footerr", SkipGroup},
    ActionWord{"footerf", SkipGroup},
    ActionWord{"f", Font},
    ActionWord{"plain", Plain},
    ActionWord{"v", Hidden},
    ActionWord{"kerning", KernSwitch},
    ActionWord{"trowd", RowStart},
    ActionWord{"par", ParagraphEnd},
    ActionWord{"sect", ParagraphEnd},
    ActionWord{"cell", CellEnd},
    ActionWord{"nestcell", NestedCellEnd},
    ActionWord{"row", RowEnd},
    ActionWord{"nestrow", NestedRowEnd},
};

using Words = std::unordered_map<std::string_view, RTFReaderWord>;

Words makeWords()
{
    Words words;
    for (const auto& word : characterWords())
        words.emplace(word.name, word.change);
    for (const auto& word : paragraphWords())
        words.emplace(word.name, word.change);
    for (const auto& word : rowWords())
        words.emplace(word.name, word.change);
    for (const auto& word : documentWords())
        words.emplace(word.name, word.change);
    for (const auto& word : kActionWords)
        words.insert_or_assign(word.name, word.action);
    for (const auto& word : textWords())
        words.try_emplace(word.name, &word);
    return words;
}

} // namespace

const RTFReaderWord& readerWordNamed(std::string_view name)
{
    static const Words words = makeWords();
    static const RTFReaderWord none;
    const auto found = words.find(name);
    return found == words.end() ? none : found->second;
}
