#pragma once

#include "platform/foundation/NSCoding.h"

#include <initializer_list>
#include <map>
#include <span>
#include <string_view>

/// The classes that an unarchiver can make, by their names in archives. Each layer gives the table of its own
/// classes and of those below it: `foundationClasses()`, `textClasses()`.
class NSClassTable {
public:
    NSClassTable(std::initializer_list<const NSClass*> classes);
    /// The classes of another table, and more. A name given again stands for the later class.
    NSClassTable(const NSClassTable& base, std::initializer_list<const NSClass*> classes);

    /// Null when there is no such class here.
    [[nodiscard]] const NSClass* classNamed(std::string_view name) const;

    /// All of them, by name.
    [[nodiscard]] const std::map<std::string_view, const NSClass*>& classes() const { return m_classes; }

private:
    std::map<std::string_view, const NSClass*> m_classes;
};
