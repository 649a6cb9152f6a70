#include "documents/PlainTextDocument.h"

#include "documents/PlainMarks.h"
#include "richtext/AttachmentNames.h"

#include <algorithm>

std::u16string plainTextOfNoteText(const NSAttributedString& noteText)
{
    const auto named
        = DynamicColors::attributedStringByReplacingAttachmentsWithNames(noteTextWithPlainMarks(noteText));
    std::u16string plain(named.string());
    std::replace(plain.begin(), plain.end(), u'\u2028', u'\n');
    if (!plain.empty() && plain.back() != u'\n')
        plain += u'\n';
    return plain;
}
