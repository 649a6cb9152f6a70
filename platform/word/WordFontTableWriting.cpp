#include "platform/word/WordFontTableWriting.h"

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/word/WordXML.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

constexpr std::array<std::u16string_view, 12> kSerifFamilies{
    u"Times",   u"Times New Roman", u"Georgia", u"Palatino", u"Baskerville", u"Garamond",
    u"Cambria", u"Hoefler Text",    u"Didot",   u"New York", u"Charter",     u"Bodoni 72"};

struct Kind {
    std::string_view name;
    std::string_view pitch;
    std::u16string_view alternative;
};

Kind kindOf(const NSFont& font)
{
    if (font.isFixedPitch())
        return {"modern", "fixed", u"Courier New"};
    const bool isSerif
        = std::find(kSerifFamilies.begin(), kSerifFamilies.end(), font.familyName()) != kSerifFamilies.end();
    return isSerif ? Kind{"roman", "variable", u"Times New Roman"} : Kind{"swiss", "variable", u"Arial"};
}

std::map<std::u16string, Kind> familiesOf(const std::vector<WordAttributeSet>& sets)
{
    std::map<std::u16string, Kind> families;
    for (const auto& set : sets) {
        const auto found = set.attributes->find(NSFontAttributeName);
        const auto font = found == set.attributes->end() ? nullptr : found->second.object<NSFont>();
        if (font)
            families.emplace(font->familyName(), kindOf(*font));
    }
    return families;
}

} // namespace

std::string wordFontTablePart(const std::vector<WordAttributeSet>& sets)
{
    WordXML xml;
    xml.raw(kWordXMLDeclaration);
    xml.raw("<w:fonts");
    xml.raw(kWordNamespace);
    xml.raw(">");
    for (const auto& [family, kind] : familiesOf(sets)) {
        xml.raw("<w:font");
        xml.attribute("w:name", family);
        xml.raw(">");
        if (family != kind.alternative)
            xml.property("w:altName", kind.alternative);
        xml.property("w:family", kind.name);
        xml.property("w:pitch", kind.pitch);
        xml.raw("</w:font>");
    }
    xml.raw("</w:fonts>");
    return xml.takeBytes();
}
