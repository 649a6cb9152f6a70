#pragma once

#include "platform/text/NSColor.h"

#include <span>
#include <string_view>
#include <vector>

/// A named list of colours with names. The system has two here: "Apple" and "Crayons".
class NSColorList {
public:
    /// A colour of a list as the list's table gives it: 0xRRGGBB in sRGB.
    struct Entry {
        std::u16string_view key;
        unsigned rgb;
    };

    /// The system's list of that name; null when there is none. Lives as long as the process.
    [[nodiscard]] static const NSColorList* colorListNamed(std::u16string_view name);
    [[nodiscard]] static std::vector<const NSColorList*> availableColorLists();

    [[nodiscard]] std::u16string_view name() const { return m_name; }

    /// In the list's order.
    [[nodiscard]] std::vector<std::u16string_view> allKeys() const;
    /// Null when the list has no such key.
    [[nodiscard]] NSColor::Ref colorWithKey(std::u16string_view key) const;

private:
    constexpr NSColorList(std::u16string_view name, std::span<const Entry> entries)
        : m_name(name)
        , m_entries(entries)
    {
    }

    static std::span<const NSColorList> lists();

    std::u16string_view m_name;
    std::span<const Entry> m_entries;
};
