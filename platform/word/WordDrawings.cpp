#include "platform/word/WordDrawings.h"

#include "platform/foundation/Unicode.h"
#include "platform/word/WordValues.h"

namespace {

constexpr double kUnitsPerPoint = 12'700;
constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr std::size_t kMostDescriptionBytes = 1024;

bool isDrawing(std::string_view localName)
{
    return localName == "drawing" || localName == "pict" || localName == "object";
}

NSSize extentOf(const XMLAttributes& attributes)
{
    return {wordLength(attributes.value("cx"), kUnitsPerPoint).value_or(0),
            wordLength(attributes.value("cy"), kUnitsPerPoint).value_or(0)};
}

/// A length of a style: "width:100pt"; a bare number counts pixels.
double styleLength(std::string_view style, std::string_view name)
{
    while (!style.empty()) {
        auto declaration = style.substr(0, style.find(';'));
        style.remove_prefix(std::min(declaration.size() + 1, style.size()));
        declaration.remove_prefix(std::min(declaration.find_first_not_of(' '), declaration.size()));
        auto length = declaration.substr(std::min(name.size() + 1, declaration.size()));
        if (!declaration.starts_with(name) || declaration.substr(name.size(), 1) != ":")
            continue;
        if (length.ends_with("px"))
            length.remove_suffix(2);
        return wordLength(length, kPixelsPerPoint).value_or(0);
    }
    return 0;
}

std::string descriptionOf(const XMLAttributes& attributes)
{
    const auto description = attributes.value("descr");
    const auto text = description.empty() ? attributes.value("title") : description;
    return std::string(prefixAtCharacterBorder(text, kMostDescriptionBytes));
}

} // namespace

void WordDrawings::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (isDrawing(localName))
        m_open.emplace_back();
    else if (!m_open.empty())
        readElement(m_open.back(), localName, attributes);
}

void WordDrawings::readElement(Drawing& drawing, std::string_view localName, const XMLAttributes& attributes)
{
    if (localName == "extent")
        drawing.whole.size = extentOf(attributes);
    else if (localName == "docPr")
        drawing.whole.description = descriptionOf(attributes);
    else if (localName == "hlinkClick")
        drawing.whole.link = attributes.prefixedValue("id");
    else if (localName == "wgp")
        drawing.isInGroup = true;
    else if (localName == "pic") {
        drawing.isInPicture = true;
        drawing.own = {};
    } else if (localName == "cNvPr" && drawing.isInPicture)
        drawing.own.description = descriptionOf(attributes);
    else if (localName == "blip" && drawing.isInPicture)
        drawing.own.picture = attributes.prefixedValue("embed");
    else if (localName == "svgBlip" && drawing.isInPicture && drawing.own.picture.empty())
        drawing.own.picture = attributes.prefixedValue("embed");
    else if (localName == "ext" && drawing.isInPicture && !attributes.value("cx").empty())
        drawing.own.size = extentOf(attributes);
    else if (localName == "shape" || localName == "rect")
        drawing.shapeSize = {styleLength(attributes.value("style"), "width"),
                             styleLength(attributes.value("style"), "height")};
    else if (localName == "imagedata") {
        drawing.own = {};
        drawing.own.picture = attributes.prefixedValue("id");
        drawing.own.description
            = prefixAtCharacterBorder(attributes.prefixedValue("title"), kMostDescriptionBytes);
        drawing.own.size = drawing.shapeSize;
    }
}

std::optional<WordDrawings::Picture> WordDrawings::endElement(std::string_view localName)
{
    if (m_open.empty())
        return std::nullopt;
    auto& drawing = m_open.back();
    if (isDrawing(localName)) {
        m_open.pop_back();
        return std::nullopt;
    }
    const bool endsPicture = (localName == "pic" && drawing.isInPicture) || localName == "imagedata";
    if (!endsPicture)
        return std::nullopt;
    drawing.isInPicture = false;
    if (drawing.own.picture.empty())
        return std::nullopt;
    return localName == "imagedata" ? drawing.own : finished(drawing);
}

WordDrawings::Picture WordDrawings::finished(const Drawing& drawing)
{
    auto picture = drawing.own;
    if (!drawing.isInGroup && drawing.whole.size.width > 0)
        picture.size = drawing.whole.size;
    if (picture.description.empty())
        picture.description = drawing.whole.description;
    picture.link = drawing.whole.link;
    return picture;
}
