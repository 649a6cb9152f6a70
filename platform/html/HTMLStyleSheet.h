#pragma once

#include "platform/html/HTMLDeclarations.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The styles of a page in the making. Each becomes a class when it is first used; equal ones share it.
class HTMLStyleSheet {
public:
    /// The class with these declarations: "s1", "s2" and on; empty for none.
    [[nodiscard]] std::string classFor(const HTMLDeclarations& declarations);

    /// A rule that stands in the sheet as it is, before the classes. A rule given again changes nothing.
    void addRule(std::string_view rule);

    /// The sheet. It lets the page follow the reader's appearance when every colour of the styles has a form
    /// for a dark one; with one that has not, the page is light for all, so that no text meets a ground of
    /// its own colour.
    [[nodiscard]] std::string text() const;

private:
    std::vector<std::string> m_rules;
    std::vector<HTMLDeclarations> m_classes;
    std::map<std::string, std::size_t, std::less<>> m_numbers;
    bool m_followsAppearance = true;
};

/// ` class="s1"`, or nothing for no class.
[[nodiscard]] std::string htmlClassAttribute(std::string_view classes);
