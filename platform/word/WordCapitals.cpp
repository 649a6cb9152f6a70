#include "platform/word/WordCapitals.h"

#include "platform/foundation/Unicode.h"

#include <unicode/uchar.h>

std::string inWordCapitals(std::string_view text)
{
    std::string capitals;
    capitals.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const auto letter = nextCodePoint(text, offset);
        const auto capital = static_cast<char32_t>(u_toupper(static_cast<UChar32>(letter)));
        const bool isFound = u_foldCase(static_cast<UChar32>(capital), U_FOLD_CASE_DEFAULT)
            == u_foldCase(static_cast<UChar32>(letter), U_FOLD_CASE_DEFAULT);
        appendUTF8(capitals, isFound ? capital : letter);
    }
    return capitals;
}
