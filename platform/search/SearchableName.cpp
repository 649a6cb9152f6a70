#include "platform/search/SearchableName.h"

#include "platform/foundation/Unicode.h"

#include <unicode/uchar.h>

namespace {

enum class Shape { Other, Lower, Upper, Digit };

Shape shapeOf(char32_t codePoint)
{
    const auto character = static_cast<UChar32>(codePoint);
    if (u_isdigit(character))
        return Shape::Digit;
    if (u_isUUppercase(character) || u_istitle(character))
        return Shape::Upper;
    return u_isalpha(character) ? Shape::Lower : Shape::Other;
}

// "HTTPServer" splits before the last capital of a run, "camelCase" before the first, "IMG2024" at the
// digits.
bool isBorder(Shape before, Shape here, Shape next)
{
    if (before == Shape::Other || here == Shape::Other)
        return false;
    if (before == Shape::Upper && here == Shape::Upper)
        return next == Shape::Lower;
    if (before == Shape::Upper && here == Shape::Lower)
        return false;
    return before != here;
}

bool isMark(char32_t codePoint)
{
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & U_GC_M_MASK) != 0;
}

} // namespace

std::string searchableName(std::string_view name)
{
    std::string split;
    split.reserve(name.size() + 8);
    bool anyBorder = false;
    Shape before = Shape::Other;
    for (std::size_t offset = 0; offset < name.size();) {
        const auto codePoint = nextCodePoint(name, offset);
        if (isMark(codePoint)) {
            appendUTF8(split, codePoint);
            continue;
        }
        const Shape here = shapeOf(codePoint);
        std::size_t peek = offset;
        const Shape next = peek < name.size() ? shapeOf(nextCodePoint(name, peek)) : Shape::Other;
        if (isBorder(before, here, next)) {
            split += ' ';
            anyBorder = true;
        }
        appendUTF8(split, codePoint);
        before = here;
    }
    std::string searchable = validUTF8(name);
    return anyBorder ? searchable + " " + split : searchable;
}
