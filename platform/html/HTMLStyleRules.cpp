#include "platform/html/HTMLStyleRules.h"

#include "platform/html/CSSValues.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostValueBytes = 1024;

std::string withoutComments(std::string_view sheet)
{
    std::string text;
    for (std::size_t start = 0; start < sheet.size();) {
        const auto comment = std::min(sheet.find("/*", start), sheet.size());
        text.append(sheet.substr(start, comment - start));
        const auto end = sheet.find("*/", std::min(comment + 2, sheet.size()));
        start = end == std::string_view::npos ? sheet.size() : end + 2;
    }
    return text;
}

/// The offset behind the block or the statement that an at-rule is.
std::size_t endOfAtRule(std::string_view sheet, std::size_t start)
{
    std::size_t depth = 0;
    for (auto index = start; index < sheet.size(); ++index) {
        if (sheet[index] == '{')
            ++depth;
        const bool isEnd = sheet[index] == '}' && depth > 0 && --depth == 0;
        if (isEnd || (sheet[index] == ';' && depth == 0))
            return index + 1;
    }
    return sheet.size();
}

/// The selector as it is looked up; empty for one of a kind that is passed over.
std::string simpleSelector(std::string_view selector)
{
    for (const auto* state : {":link", ":visited"}) {
        if (selector.ends_with(state))
            selector.remove_suffix(std::string_view(state).size());
    }
    constexpr std::string_view kMarks = " \t\n\r\f>+~:[]*()\\";
    const auto mark = selector.find_first_of(".#");
    const bool isSimple = selector.find_first_of(kMarks) == std::string_view::npos
        && (mark == std::string_view::npos
            || selector.find_first_of(".#", mark + 1) == std::string_view::npos);
    if (!isSimple || selector.size() > kMostValueBytes)
        return {};
    const auto name = selector.substr(0, mark);
    return inASCIILowerCase(name) + std::string(selector.substr(name.size()));
}

} // namespace

CSSDeclarations::CSSDeclarations(std::string_view text)
{
    for (const auto piece : cssPieces(text, ';')) {
        const auto colon = piece.find(':');
        if (colon == std::string_view::npos)
            continue;
        auto value = trimmedCSS(piece.substr(colon + 1));
        value = trimmedCSS(value.substr(0, value.find('!')));
        if (!value.empty() && value.size() <= kMostValueBytes)
            set(inASCIILowerCase(trimmedCSS(piece.substr(0, colon))), value);
    }
}

void CSSDeclarations::set(std::string_view property, std::string_view value)
{
    std::erase_if(m_declarations,
                  [property](const Declaration& declaration) { return declaration.property == property; });
    if (m_declarations.size() < kMostDeclarations)
        m_declarations.push_back({std::string(property), std::string(value)});
}

void CSSDeclarations::add(const CSSDeclarations& other)
{
    for (const auto& [property, value] : other.m_declarations)
        set(property, value);
}

void HTMLStyleRules::addSheet(std::string_view sheet)
{
    const auto text = withoutComments(sheet);
    const std::string_view rest(text);
    for (std::size_t start = 0; start < rest.size();) {
        start = std::min(rest.find_first_not_of(" \t\n\r\f;}", start), rest.size());
        if (start < rest.size() && rest[start] == '@') {
            start = endOfAtRule(rest, start);
            continue;
        }
        const auto opening = std::min(rest.find('{', start), rest.size());
        const auto closing = std::min(rest.find('}', opening), rest.size());
        if (opening < closing)
            addRule(rest.substr(start, opening - start), rest.substr(opening + 1, closing - opening - 1));
        start = closing;
    }
}

void HTMLStyleRules::addRule(std::string_view selectors, std::string_view body)
{
    // Sheets used to hide themselves from readers that show what they don't know.
    if (trimmedCSS(selectors).starts_with("<!--"))
        selectors = trimmedCSS(selectors).substr(4);
    const CSSDeclarations declarations(body);
    for (const auto selector : cssPieces(selectors, ',')) {
        auto key = simpleSelector(selector);
        const bool isKept = !key.empty() && (m_rules.size() < kMostSelectors || m_rules.contains(key));
        if (isKept)
            m_rules[std::move(key)].add(declarations);
    }
}

std::vector<const CSSDeclarations*> HTMLStyleRules::declarationsFor(const HTMLTag& tag) const
{
    std::vector<const CSSDeclarations*> found;
    if (m_rules.empty())
        return found;
    const auto take = [&](const std::string& key) {
        const auto rule = m_rules.find(key);
        if (rule != m_rules.end())
            found.push_back(&rule->second);
    };
    auto classes = cssWords(tag.attribute("class").substr(0, kMostValueBytes));
    classes.resize(std::min(classes.size(), kMostClasses));
    take(tag.name);
    for (const auto name : classes)
        take("." + std::string(name));
    for (const auto name : classes)
        take(tag.name + "." + std::string(name));
    if (const auto identifier = tag.attribute("id");
        !identifier.empty() && identifier.size() < kMostValueBytes) {
        take("#" + std::string(identifier));
        take(tag.name + "#" + std::string(identifier));
    }
    return found;
}
