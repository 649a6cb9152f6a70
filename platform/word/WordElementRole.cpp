#include "platform/word/WordElementRole.h"

#include <algorithm>
#include <array>

namespace {

using Role = WordElementRole;

struct Row {
    std::string_view name;
    Role role;
};

// Sorted, for the binary search. The settings of content controls are hidden for the names that they use.
constexpr std::array<Row, 48> kRows{{
    {"AlternateContent", Role::Alternatives},
    {"Choice", Role::Alternative},
    {"Fallback", Role::Alternative},
    {"annotationRef", Role::NoteMark},
    {"binData", Role::Hidden},
    {"br", Role::LineBreak},
    {"comment", Role::Comment},
    {"commentReference", Role::CommentReference},
    {"cr", Role::LineBreak},
    {"del", Role::Hidden},
    {"den", Role::Denominator},
    {"endnote", Role::Endnote},
    {"endnoteRef", Role::NoteMark},
    {"endnoteReference", Role::EndnoteReference},
    {"fldChar", Role::FieldCharacter},
    {"fldSimple", Role::SimpleField},
    {"footnote", Role::Footnote},
    {"footnoteRef", Role::NoteMark},
    {"footnoteReference", Role::FootnoteReference},
    {"hyperlink", Role::Link},
    {"instrText", Role::FieldInstruction},
    {"lists", Role::Hidden},
    {"moveFrom", Role::Hidden},
    {"noBreakHyphen", Role::NoBreakHyphen},
    {"p", Role::Paragraph},
    {"pgMar", Role::PageMargins},
    {"pgSz", Role::PageSize},
    {"ptab", Role::Tab},
    {"r", Role::Run},
    {"rt", Role::Hidden},
    {"sdtEndPr", Role::Hidden},
    {"sdtPr", Role::Hidden},
    {"softHyphen", Role::SoftHyphen},
    {"styles", Role::Hidden},
    {"sub", Role::Lowered},
    {"sup", Role::Raised},
    {"sym", Role::Symbol},
    {"t", Role::Text},
    {"tab", Role::Tab},
    {"tbl", Role::Table},
    {"tblGrid", Role::Hidden},
    {"tc", Role::Cell},
    {"text", Role::Text},
    {"textpath", Role::WordArt},
    {"tr", Role::Row},
    {"tx", Role::Paragraph},
    {"txbxContent", Role::TextBox},
    {"v", Role::Text},
}};
static_assert(std::is_sorted(kRows.begin(), kRows.end(),
                             [](const Row& left, const Row& right) { return left.name < right.name; }));

} // namespace

WordElementRole wordElementRole(std::string_view localName)
{
    const auto* const row
        = std::lower_bound(kRows.begin(), kRows.end(), localName,
                           [](const Row& left, std::string_view name) { return left.name < name; });
    return row != kRows.end() && row->name == localName ? row->role : Role::None;
}
