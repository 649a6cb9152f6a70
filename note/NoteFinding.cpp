#include "note/NoteFinding.h"

#include "platform/foundation/NSBundle.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace {

using Kind = NoteFinding::Kind;

struct Words {
    Kind kind;
    std::string_view name;
    std::u16string_view text;
};

constexpr std::u16string_view kSubject = u"%@";

constexpr std::array kWords{
    Words{Kind::MissingText, "missingText", u"NoteText is missing."},
    Words{Kind::EmptyText, "emptyText", u"NoteText is empty, and so is the note."},
    Words{Kind::DamagedText, "damagedText", u"NoteText cannot be read: %@"},
    Words{Kind::MissingAttributes, "missingAttributes", u"NoteAttributes is missing."},
    Words{Kind::DamagedAttributes, "damagedAttributes", u"NoteAttributes cannot be read."},
    Words{Kind::MissingFile, "missingFile", u"The attached file %@ is missing."},
    Words{Kind::NamelessFile, "namelessFile", u"An attached file has no name, or one that no file can have."},
    Words{Kind::NoFile, "noFile", u"%@ is a link or a folder instead of a file, and what it held is lost."},
    Words{Kind::SpecialMember, "specialMember", u"%@ is a pipe or a device: the note cannot be read."},
    Words{Kind::HugeMember, "hugeMember", u"%@ is too large: the note cannot be read."},
    Words{Kind::UnreadablePackage, "unreadablePackage", u"The note cannot be read: %@"},
    Words{Kind::MisplacedDivider, "misplacedDivider", u"The divider at %@ takes the place of other text."},
    Words{Kind::DividerAtEnd, "dividerAtEnd", u"The divider at %@ ends the note and shows as asterisks."},
    Words{Kind::DividerBehindText, "dividerBehindText", u"The divider at %@ stands behind the text."},
    Words{Kind::UnusedMember, "unusedMember", u"Nothing in the note refers to %@."},
    Words{Kind::LinkedMember, "linkedMember", u"%@ is a link, which is not followed."},
    Words{Kind::LargeMember, "largeMember", u"%@ is too large to be indexed."},
    Words{Kind::MissingRTF, "missingRTF", u"TXT.rtf is missing: other programs see no text."},
    Words{Kind::DamagedRTF, "damagedRTF", u"TXT.rtf cannot be read: %@"},
    Words{Kind::DifferentRTF, "differentRTF", u"TXT.rtf holds another text than the note."},
};

const Words& wordsOf(Kind kind)
{
    const auto* const found
        = std::find_if(kWords.begin(), kWords.end(), [kind](const Words& each) { return each.kind == kind; });
    assert(found != kWords.end());
    return *found;
}

} // namespace

std::u16string NoteFinding::description() const
{
    auto text = NSBundle::mainBundle().localizedStringForKey(wordsOf(kind).text);
    if (const auto place = text.find(kSubject); place != std::u16string::npos)
        text.replace(place, kSubject.size(), subject);
    return text;
}

std::string_view nameOfNoteFinding(NoteFinding::Kind kind)
{
    return wordsOf(kind).name;
}
