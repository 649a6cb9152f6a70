#include "platform/text/NSColorList.h"

#include <algorithm>
#include <array>

namespace {

using Entry = NSColorList::Entry;

constexpr std::array kApple{
    Entry{u"Black", 0x000000},  Entry{u"Blue", 0x0000ff},   Entry{u"Brown", 0x996633},
    Entry{u"Cyan", 0x00ffff},   Entry{u"Green", 0x00ff00},  Entry{u"Magenta", 0xff00ff},
    Entry{u"Orange", 0xff8000}, Entry{u"Purple", 0x800080}, Entry{u"Red", 0xff0000},
    Entry{u"Yellow", 0xffff00}, Entry{u"White", 0xffffff},
};

constexpr std::array kCrayons{
    Entry{u"Cantaloupe", 0xffcc66}, Entry{u"Honeydew", 0xccff66},  Entry{u"Spindrift", 0x66ffcc},
    Entry{u"Sky", 0x66ccff},        Entry{u"Lavender", 0xcc66ff},  Entry{u"Carnation", 0xff6fcf},
    Entry{u"Licorice", 0x000000},   Entry{u"Snow", 0xffffff},      Entry{u"Salmon", 0xff6666},
    Entry{u"Banana", 0xffff66},     Entry{u"Flora", 0x66ff66},     Entry{u"Ice", 0x66ffff},
    Entry{u"Orchid", 0x6666ff},     Entry{u"Bubblegum", 0xff66ff}, Entry{u"Lead", 0x191919},
    Entry{u"Mercury", 0xe6e6e6},    Entry{u"Tangerine", 0xff8000}, Entry{u"Lime", 0x80ff00},
    Entry{u"Sea Foam", 0x00ff80},   Entry{u"Aqua", 0x0080ff},      Entry{u"Grape", 0x8000ff},
    Entry{u"Strawberry", 0xff0080}, Entry{u"Tungsten", 0x333333},  Entry{u"Silver", 0xcccccc},
    Entry{u"Maraschino", 0xff0000}, Entry{u"Lemon", 0xffff00},     Entry{u"Spring", 0x00ff00},
    Entry{u"Turquoise", 0x00ffff},  Entry{u"Blueberry", 0x0000ff}, Entry{u"Magenta", 0xff00ff},
    Entry{u"Iron", 0x4c4c4c},       Entry{u"Magnesium", 0xb3b3b3}, Entry{u"Mocha", 0x804000},
    Entry{u"Fern", 0x408000},       Entry{u"Moss", 0x008040},      Entry{u"Ocean", 0x004080},
    Entry{u"Eggplant", 0x400080},   Entry{u"Maroon", 0x800040},    Entry{u"Steel", 0x666666},
    Entry{u"Aluminum", 0x999999},   Entry{u"Cayenne", 0x800000},   Entry{u"Asparagus", 0x808000},
    Entry{u"Clover", 0x008000},     Entry{u"Teal", 0x008080},      Entry{u"Midnight", 0x000080},
    Entry{u"Plum", 0x800080},       Entry{u"Tin", 0x7f7f7f},       Entry{u"Nickel", 0x808080},
};

double part(unsigned rgb, unsigned shift)
{
    return static_cast<double>((rgb >> shift) & 0xffU) / 255.0;
}

} // namespace

std::span<const NSColorList> NSColorList::lists()
{
    static constexpr std::array kLists{NSColorList(u"Apple", kApple), NSColorList(u"Crayons", kCrayons)};
    return kLists;
}

const NSColorList* NSColorList::colorListNamed(std::u16string_view name)
{
    for (const auto& list : lists()) {
        if (list.m_name == name)
            return &list;
    }
    return nullptr;
}

std::vector<const NSColorList*> NSColorList::availableColorLists()
{
    std::vector<const NSColorList*> available;
    for (const auto& list : lists())
        available.push_back(&list);
    return available;
}

std::vector<std::u16string_view> NSColorList::allKeys() const
{
    std::vector<std::u16string_view> keys;
    for (const auto& entry : m_entries)
        keys.push_back(entry.key);
    return keys;
}

NSColor::Ref NSColorList::colorWithKey(std::u16string_view key) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [key](const Entry& entry) { return entry.key == key; });
    if (found == m_entries.end())
        return nullptr;
    return NSColor::colorWithSRGBRed(part(found->rgb, 16), part(found->rgb, 8), part(found->rgb, 0), 1);
}
