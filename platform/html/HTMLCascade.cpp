#include "platform/html/HTMLCascade.h"

#include "platform/html/HTMLAttributeStyle.h"
#include "platform/html/HTMLDefaultRules.h"

#include <algorithm>

namespace {

bool saysMargin(const CSSDeclarations* declarations)
{
    return std::any_of(declarations->all().begin(), declarations->all().end(),
                       [](const auto& one) { return one.property.starts_with("margin"); });
}

} // namespace

HTMLCascade HTMLCascade::ofElement(const HTMLTag& tag, const HTMLComputedStyle& parent,
                                   const HTMLStyleRules& rules)
{
    const auto attributes = declarationsOfAttributes(tag);
    const CSSDeclarations inlineStyle(tag.attribute("style"));
    std::vector<const CSSDeclarations*> own{&attributes};
    const auto found = rules.declarationsFor(tag);
    own.insert(own.end(), found.begin(), found.end());
    own.push_back(&inlineStyle);

    HTMLTag bare;
    bare.name = tag.name;
    auto cascade = defaultHTMLRules().declarationsFor(bare);
    cascade.insert(cascade.end(), own.begin(), own.end());
    return {parent.styleWith(cascade), std::any_of(own.begin(), own.end(), saysMargin)};
}
