#include "strings/Capitalization.h"

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSString.h"

std::u16string TSExtensions::smartCapitalizedString(std::u16string_view text)
{
    auto words = componentsSeparatedByString(text, u" ");
    for (auto& word : words) {
        if (rangeOfCharacterFromSet(word, NSCharacterSet::uppercaseLetterCharacterSet()).location
            == NSNotFound)
            word = localizedCapitalizedString(word);
    }
    return componentsJoinedByString(words, u" ");
}
