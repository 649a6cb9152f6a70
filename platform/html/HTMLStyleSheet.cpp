#include "platform/html/HTMLStyleSheet.h"

#include <fmt/format.h>

#include <algorithm>

std::string HTMLStyleSheet::classFor(const HTMLDeclarations& declarations)
{
    if (declarations.empty())
        return {};
    m_followsAppearance = m_followsAppearance && !declarations.hasFixedColor;
    const auto [place, isNew]
        = m_numbers.try_emplace(declarations.light + '\n' + declarations.dark, m_classes.size() + 1);
    if (isNew)
        m_classes.push_back(declarations);
    return fmt::format("s{}", place->second);
}

void HTMLStyleSheet::addRule(std::string_view rule)
{
    if (std::find(m_rules.begin(), m_rules.end(), rule) == m_rules.end())
        m_rules.emplace_back(rule);
}

std::string HTMLStyleSheet::text() const
{
    std::string sheet = m_followsAppearance ? ":root{color-scheme:light dark}\n" : "";
    std::string dark;
    for (const auto& rule : m_rules)
        sheet += rule + '\n';
    for (std::size_t index = 0; index < m_classes.size(); ++index) {
        const auto& style = m_classes[index];
        sheet += fmt::format(".s{}{{{}}}\n", index + 1, style.light);
        if (m_followsAppearance && style.dark != style.light)
            dark += fmt::format(".s{}{{{}}}\n", index + 1, style.dark);
    }
    if (!dark.empty())
        sheet += "@media (prefers-color-scheme:dark){\n" + dark + "}\n";
    return sheet;
}

std::string htmlClassAttribute(std::string_view classes)
{
    return classes.empty() ? std::string() : fmt::format(R"( class="{}")", classes);
}
