#include "richtext/TrimmedPassages.h"

#include "strings/StringCleaning.h"

#include <utility>

void appendTrimmedPassage(std::vector<std::u16string>& passages, const NSAttributedString& text,
                          NSRange range)
{
    auto passage = TSExtensions::stringByTrimmingWhitespace(text.substringWithRange(range));
    if (!passage.empty())
        passages.push_back(std::move(passage));
}
