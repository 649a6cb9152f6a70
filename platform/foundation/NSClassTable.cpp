#include "platform/foundation/NSClassTable.h"

NSClassTable::NSClassTable(std::initializer_list<const NSClass*> classes)
{
    for (const auto* listed : classes)
        m_classes.insert_or_assign(listed->name, listed);
}

NSClassTable::NSClassTable(const NSClassTable& base, std::initializer_list<const NSClass*> classes)
    : m_classes(base.m_classes)
{
    for (const auto* listed : classes)
        m_classes.insert_or_assign(listed->name, listed);
}

const NSClass* NSClassTable::classNamed(std::string_view name) const
{
    const auto found = m_classes.find(name);
    return found == m_classes.end() ? nullptr : found->second;
}
