#include "cli/StyleFields.h"

#include "cli/Console.h"
#include "colours/ColourForms.h"
#include "platform/foundation/Unicode.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace {

constexpr std::size_t kHexadecimalLength = 7;
constexpr double kFullComponent = 255;

std::string identifierOf(const CVLNoteTextStyle& style)
{
    return UTF8FromUTF16(style.identifier().value_or(std::u16string()));
}

// Sizes are stored in single precision: the shortest decimal that gives the stored one is what was asked for.
std::string sizeText(const CVLNoteTextStyle& style)
{
    return fmt::format("{}", static_cast<float>(style.fontSize()));
}

bool isTextColour(const CVLNoteTextStyle& style)
{
    return style.foregroundColor()->isEqual(*CVLNoteTextStyle::standardForegroundColor());
}

NSFont::Ref fontNamed(const std::string& name, double size)
{
    const auto text = UTF16FromUTF8(name);
    if (auto font = NSFont::fontWithName(text, size))
        return font;
    const auto family
        = NSFontDescriptor::fontDescriptorWithFontAttributes({{std::u16string(NSFontFamilyAttribute), text}});
    return NSFont::fontWithDescriptor(*family, size);
}

// Null when the text is not "#rrggbb".
NSColor::Ref colourFromHexadecimal(const std::string& text)
{
    const auto isDigit = [](unsigned char character) { return std::isxdigit(character) != 0; };
    if (text.size() != kHexadecimalLength || text[0] != '#'
        || !std::all_of(text.begin() + 1, text.end(), isDigit))
        return nullptr;
    const auto value = std::stoul(text.substr(1), nullptr, 16);
    const auto component
        = [&](unsigned shift) { return static_cast<double>((value >> shift) & 0xFFU) / kFullComponent; };
    return NSColor::colorWithRed(component(16), component(8), component(0), 1);
}

// What a style is beside font and colour, in words; empty for a plain one.
std::string flagsText(const CVLNoteTextStyle& style)
{
    std::string text;
    const auto append = [&](bool isSet, const std::string& word) {
        if (isSet)
            text += (text.empty() ? "" : ", ") + word;
    };
    append(style.underlineStyle() != 0, fmt::format("underline {}", style.underlineStyle()));
    append(style.strikethrough() != 0, fmt::format("strikethrough {}", style.strikethrough()));
    append(style.applyToParagraph(), "whole paragraphs");
    append(style.resetOnNewLine(), "resets on new line");
    return text;
}

} // namespace

bool applyChanges(const StyleChanges& changes, CVLNoteTextStyle& style, std::string& reason)
{
    const double size = changes.size.value_or(style.fontSize());
    const auto font
        = changes.font ? fontNamed(*changes.font, size) : NSFont::fontWithName(style.fontName(), size);
    if (!font) {
        reason = "there is no font " + changes.font.value_or(UTF8FromUTF16(style.fontName()));
        return false;
    }
    const bool isColoured = changes.colour && *changes.colour != "none";
    const auto colour = isColoured ? colourFromHexadecimal(*changes.colour) : nullptr;
    if (isColoured && !colour) {
        reason = *changes.colour + " is no colour; give it as #rrggbb, or none";
        return false;
    }
    style.setFont(font);
    if (changes.colour)
        style.setForegroundColor(colour);
    style.setUnderlineStyle(changes.underline.value_or(style.underlineStyle()));
    style.setStrikethrough(changes.strikethrough.value_or(style.strikethrough()));
    if (changes.lineSpacing || changes.paragraphSpacing) {
        auto paragraphStyle = style.paragraphStyle()->mutableCopy();
        paragraphStyle.setLineSpacing(changes.lineSpacing.value_or(paragraphStyle.lineSpacing()));
        paragraphStyle.setParagraphSpacing(
            changes.paragraphSpacing.value_or(paragraphStyle.paragraphSpacing()));
        style.setParagraphStyle(paragraphStyle.copy());
    }
    return true;
}

std::string colourText(const CVLNoteTextStyle& style)
{
    const auto text
        = isTextColour(style) ? std::nullopt : CVLExtensions::hexadecimalString(*style.foregroundColor());
    return text ? UTF8FromUTF16(*text) : "text";
}

std::string styleListLine(const CVLNoteTextStyle& style, bool isDefault)
{
    // The name stands last, as it may be of any width.
    const auto flags = flagsText(style);
    return fmt::format("{} {:<36}  {:<20} {:>4}  {:<7}  {}{}", isDefault ? '*' : ' ',
                       printable(identifierOf(style)), printable(UTF8FromUTF16(style.fontName())),
                       sizeText(style), colourText(style), printable(UTF8FromUTF16(style.name())),
                       flags.empty() ? flags : " (" + flags + ")");
}

std::string styleText(const CVLNoteTextStyle& style, bool isDefault)
{
    const auto paragraphStyle = style.paragraphStyle();
    return fmt::format("name               {}\n"
                       "identifier         {}\n"
                       "font               {}\n"
                       "size               {}\n"
                       "colour             {}\n"
                       "underline          {}\n"
                       "strikethrough      {}\n"
                       "line spacing       {}\n"
                       "paragraph spacing  {}\n"
                       "header level       {}\n"
                       "whole paragraphs   {}\n"
                       "resets on new line {}\n"
                       "default style      {}",
                       printable(UTF8FromUTF16(style.name())), printable(identifierOf(style)),
                       printable(UTF8FromUTF16(style.fontName())), sizeText(style), colourText(style),
                       style.underlineStyle(), style.strikethrough(), paragraphStyle->lineSpacing(),
                       paragraphStyle->paragraphSpacing(), paragraphStyle->headerLevel(),
                       style.applyToParagraph() ? "yes" : "no", style.resetOnNewLine() ? "yes" : "no",
                       isDefault ? "yes" : "no");
}

std::string styleLine(const CVLNoteTextStyle& style, bool isDefault)
{
    const auto paragraphStyle = style.paragraphStyle();
    nlohmann::ordered_json value;
    value["name"] = UTF8FromUTF16(style.name());
    value["identifier"] = identifierOf(style);
    value["type"] = static_cast<NSInteger>(style.type());
    value["font"] = UTF8FromUTF16(style.fontName());
    value["size"] = std::strtod(sizeText(style).c_str(), nullptr);
    value["colour"]
        = isTextColour(style) ? nlohmann::ordered_json() : nlohmann::ordered_json(colourText(style));
    value["underline"] = style.underlineStyle();
    value["strikethrough"] = style.strikethrough();
    value["lineSpacing"] = paragraphStyle->lineSpacing();
    value["paragraphSpacing"] = paragraphStyle->paragraphSpacing();
    value["headerLevel"] = paragraphStyle->headerLevel();
    value["applyToParagraph"] = style.applyToParagraph();
    value["resetOnNewLine"] = style.resetOnNewLine();
    value["default"] = isDefault;
    return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}
