#include "richtext/TrimmedPassages.h"

#include "platform/foundation/NSCharacterSet.h"

void appendTrimmedPassage(std::vector<std::u16string>& passages, const NSAttributedString& text,
                          NSRange range)
{
    auto passage = stringByTrimmingCharactersInSet(text.substringWithRange(range),
                                                   NSCharacterSet::whitespaceAndNewlineCharacterSet());
    if (!passage.empty())
        passages.push_back(std::move(passage));
}
