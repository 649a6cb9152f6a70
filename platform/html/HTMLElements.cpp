#include "platform/html/HTMLElements.h"

#include <unordered_map>

namespace {

struct Element {
    HTMLLayout layout = HTMLLayout::Inline;
    HTMLContentKind contentKind = HTMLContentKind::Markup;
};

using ElementTable = std::unordered_map<std::string_view, Element>;

void addBlocks(ElementTable& table)
{
    for (const auto* name :
         {"address", "article", "aside",   "blockquote", "body",     "caption", "center",   "dd",
          "details", "dialog",  "dir",     "div",        "dl",       "dt",      "fieldset", "figcaption",
          "figure",  "footer",  "form",    "frameset",   "h1",       "h2",      "h3",       "h4",
          "h5",      "h6",      "head",    "header",     "hgroup",   "html",    "legend",   "li",
          "main",    "menu",    "nav",     "ol",         "optgroup", "option",  "p",        "search",
          "section", "select",  "summary", "table",      "tbody",    "tfoot",   "thead",    "title",
          "tr",      "ul"})
        table[name].layout = HTMLLayout::Block;
    for (const auto* name : {"br", "hr"})
        table[name].layout = HTMLLayout::LineBreak;
    for (const auto* name : {"button", "svg", "td", "th"})
        table[name].layout = HTMLLayout::Cell;
    for (const auto* name : {"listing", "plaintext", "pre", "textarea", "xmp"})
        table[name].layout = HTMLLayout::Preformatted;
}

void addContentKinds(ElementTable& table)
{
    for (const auto* name : {"textarea", "title"})
        table[name].contentKind = HTMLContentKind::Characters;
    for (const auto* name : {"plaintext", "xmp"})
        table[name].contentKind = HTMLContentKind::Raw;
    for (const auto* name : {"iframe", "noembed", "noframes", "noscript", "script", "style", "template"})
        table[name].contentKind = HTMLContentKind::Hidden;
}

Element elementNamed(std::string_view name)
{
    static const ElementTable table = [] {
        ElementTable made;
        addBlocks(made);
        addContentKinds(made);
        return made;
    }();
    const auto found = table.find(name);
    return found == table.end() ? Element() : found->second;
}

} // namespace

HTMLLayout layoutOfElement(std::string_view name)
{
    return elementNamed(name).layout;
}

HTMLContentKind contentKindOfElement(std::string_view name)
{
    return elementNamed(name).contentKind;
}
