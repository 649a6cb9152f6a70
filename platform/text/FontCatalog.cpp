#include "platform/text/FontCatalog.h"

#include "platform/text/FontTable.h"
#include "platform/text/InstalledFonts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <mutex>
#include <string>

namespace {

using FaceRef = std::shared_ptr<const FontFace>;

/// Longer than any name that a font may have.
constexpr std::size_t kMaximumNameLength = 127;

FaceRef faceFromTable(const TableFace& row)
{
    return std::make_shared<const FontFace>(FontFace{std::u16string(row.postScriptName),
                                                     std::u16string(row.family), std::u16string(row.face),
                                                     row.weight, row.traits, row.metrics});
}

/// The faces met so far, by PostScript name, so that one face is one object.
class KnownFaces {
public:
    template <typename Find> FaceRef faceNamed(std::u16string_view name, Find find)
    {
        {
            const std::lock_guard lock(m_mutex);
            const auto known = m_faces.find(name);
            if (known != m_faces.end())
                return known->second;
        }
        FaceRef found = find();
        if (!found)
            return nullptr;
        const std::lock_guard lock(m_mutex);
        return m_faces.try_emplace(std::u16string(name), std::move(found)).first->second;
    }

private:
    std::mutex m_mutex;
    std::map<std::u16string, FaceRef, std::less<>> m_faces;
};

KnownFaces& knownFaces()
{
    static KnownFaces faces;
    return faces;
}

bool isNameCharacter(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9')
        || unit == u'-' || unit == u'_';
}

bool isSystemFontName(std::u16string_view name)
{
    return name.size() > 1 && name.front() == u'.'
        && std::all_of(name.begin() + 1, name.end(), isNameCharacter);
}

/// The weight and slant that the end of a name tells of.
FontFace faceByItsName(std::u16string_view name)
{
    struct Ending {
        std::u16string_view text;
        FontWeight weight;
    };

    // Longer endings first: Demibold ends with bold too.
    static constexpr std::array kEndings{
        Ending{u"Ultralight", FontWeight::UltraLight},
        Ending{u"UltraLight", FontWeight::UltraLight},
        Ending{u"ExtraLight", FontWeight::Thin},
        Ending{u"Semibold", FontWeight::Semibold},
        Ending{u"SemiBold", FontWeight::Semibold},
        Ending{u"Demibold", FontWeight::Semibold},
        Ending{u"DemiBold", FontWeight::Semibold},
        Ending{u"ExtraBold", FontWeight::Heavy},
        Ending{u"Demi", FontWeight::Semibold},
        Ending{u"Medium", FontWeight::Medium},
        Ending{u"Light", FontWeight::Light},
        Ending{u"Thin", FontWeight::Thin},
        Ending{u"Heavy", FontWeight::Heavy},
        Ending{u"Black", FontWeight::Black},
        Ending{u"Bold", FontWeight::Bold},
        Ending{u"Emphasized", FontWeight::Bold},
    };
    FontFace face;
    face.postScriptName = std::u16string(name);
    auto rest = name;
    for (const std::u16string_view slanted : {u"Italic", u"Oblique"}) {
        if (!rest.ends_with(slanted))
            continue;
        face.traits |= NSFontItalicTrait;
        rest.remove_suffix(slanted.size());
        break;
    }
    const auto* const ending = std::find_if(kEndings.begin(), kEndings.end(),
                                            [rest](const Ending& each) { return rest.ends_with(each.text); });
    if (ending != kEndings.end()) {
        face.weight = ending->weight;
        face.faceName = std::u16string(ending->text);
    }
    if (face.weight >= FontWeight::Semibold)
        face.traits |= NSFontBoldTrait;
    if (face.traits & NSFontItalicTrait)
        face.faceName += face.faceName.empty() ? u"Italic" : u" Italic";
    if (face.faceName.empty())
        face.faceName = u"Regular";
    return face;
}

FontFace systemFace(std::u16string_view name)
{
    auto face = faceByItsName(name);
    face.familyName = std::u16string(kSystemFontFamily);
    face.metrics = faceNamed(u"SFPro-Regular")->metrics;
    return face;
}

/// The system's own faces, as its names for them are.
std::vector<FaceRef> systemFaces()
{
    static constexpr std::array<std::u16string_view, 11> kNames{
        u".AppleSystemUIFont",       u".AppleSystemUIFontUltraLight", u".AppleSystemUIFontThin",
        u".AppleSystemUIFontLight",  u".AppleSystemUIFontMedium",     u".AppleSystemUIFontSemibold",
        u".AppleSystemUIFontBold",   u".AppleSystemUIFontHeavy",      u".AppleSystemUIFontBlack",
        u".AppleSystemUIFontItalic", u".AppleSystemUIFontBoldItalic"};
    std::vector<FaceRef> faces;
    for (const auto name : kNames)
        faces.push_back(faceNamed(name));
    return faces;
}

FaceRef findFace(std::u16string_view name)
{
    const auto table = platformFaces();
    const auto row = std::find_if(table.begin(), table.end(),
                                  [name](const TableFace& each) { return each.postScriptName == name; });
    if (row != table.end())
        return faceFromTable(*row);
    if (isSystemFontName(name))
        return std::make_shared<const FontFace>(systemFace(name));
    auto installed = installedFaceNamed(name);
    return installed ? std::make_shared<const FontFace>(std::move(*installed)) : nullptr;
}

} // namespace

FaceRef faceNamed(std::u16string_view postScriptName)
{
    if (postScriptName.empty() || postScriptName.size() > kMaximumNameLength)
        return nullptr;
    // A document may name any number of system fonts: they are made anew, so that none is kept for it.
    if (isSystemFontName(postScriptName))
        return findFace(postScriptName);
    return knownFaces().faceNamed(postScriptName, [&] { return findFace(postScriptName); });
}

FaceRef standInForFaceNamed(std::u16string_view postScriptName)
{
    auto face = faceByItsName(postScriptName.substr(0, kMaximumNameLength));
    face.familyName = face.postScriptName.substr(0, face.postScriptName.rfind(u'-'));
    return std::make_shared<const FontFace>(std::move(face));
}

std::vector<FaceRef> facesOfFamily(std::u16string_view family)
{
    if (family == kSystemFontFamily)
        return systemFaces();
    std::vector<FaceRef> faces;
    for (const auto& row : platformFacesOfFamily(family))
        faces.push_back(faceNamed(row.postScriptName));
    if (!faces.empty() || family.empty() || family.size() > kMaximumNameLength)
        return faces;
    for (auto& installed : installedFacesOfFamily(family)) {
        const auto name = installed.postScriptName;
        faces.push_back(knownFaces().faceNamed(
            name, [&] { return std::make_shared<const FontFace>(std::move(installed)); }));
    }
    return faces;
}

FaceRef nearestFace(const std::vector<FaceRef>& faces, unsigned traits, unsigned mask, double weight)
{
    FaceRef nearest;
    const auto distance = [weight](const FontFace& face) {
        const auto difference = descriptorWeight(face.weight) - weight;
        // Of two at the same distance the one on the far side from regular comes first.
        const auto isOnSide = weight > NSFontWeightRegular ? difference > 0 : difference < 0;
        return std::pair(std::abs(difference), !isOnSide);
    };
    for (const auto& face : faces) {
        if ((face->traits & mask) != (traits & mask))
            continue;
        if (!nearest || distance(*face) < distance(*nearest))
            nearest = face;
    }
    return nearest;
}
