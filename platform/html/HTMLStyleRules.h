#pragma once

#include "platform/html/HTMLTokenizer.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Declarations in the order in which they take effect; each property stands once.
class CSSDeclarations {
public:
    struct Declaration {
        std::string property;
        std::string value;
    };

    CSSDeclarations() = default;
    /// What stands between the braces of a rule, or in an attribute `style`.
    explicit CSSDeclarations(std::string_view text);

    void set(std::string_view property, std::string_view value);
    void add(const CSSDeclarations& other);

    [[nodiscard]] const std::vector<Declaration>& all() const { return m_declarations; }

private:
    /// Properties that are kept of one rule, more than anything here understands.
    static constexpr std::size_t kMostDeclarations = 64;

    std::vector<Declaration> m_declarations;
};

/// The rules of style sheets whose selectors are an element, a class, an identifier, or an element with one
/// of the two; other selectors and all at-rules are passed over. Rules of one selector are kept as one, so
/// that finding those of an element costs the same however many there are.
class HTMLStyleRules {
public:
    void addSheet(std::string_view sheet);

    /// The declarations for an element, the weakest first. Valid until a sheet is added.
    [[nodiscard]] std::vector<const CSSDeclarations*> declarationsFor(const HTMLTag& tag) const;

private:
    static constexpr std::size_t kMostSelectors = 20'000;
    static constexpr std::size_t kMostClasses = 16;

    void addRule(std::string_view selectors, std::string_view body);

    std::map<std::string, CSSDeclarations, std::less<>> m_rules;
};
