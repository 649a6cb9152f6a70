#include "note/NotePlainText.h"

#include "note/NoteAttributes.h"
#include "note/NoteMembers.h"
#include "note/NotePackage.h"
#include "note/NoteRecovery.h"
#include "note/StoredNoteText.h"
#include "platform/foundation/BinaryPropertyList.h"
#include "platform/foundation/NSLog.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using State = NoteMembers::State;

/// A NoteAttributes in the binary form may have more bytes than other members, for the drawings in it, but
/// not more values than these: each takes up to a hundred bytes while it is read, in a list one in the file.
constexpr std::size_t kMostAttributesBytes = std::size_t{64} << 20U;
constexpr std::size_t kMostAttributesValues = 1'000'000;

/// What a binary property list refers to, in all. What is none has none, and is not read.
std::size_t valueCount(std::string_view data)
{
    using Kind = BinaryPropertyList::Kind;
    const auto list = BinaryPropertyList::createWithData(data);
    std::size_t count = list ? list->objectCount() : 0;
    for (BinaryPropertyList::Reference object = 0; list && object < list->objectCount(); ++object)
        if (list->kind(object) == Kind::Array || list->kind(object) == Kind::Dictionary)
            count += list->count(object);
    return count;
}

/// Where the note has dividers; none when that takes too much to find out, which is logged.
std::vector<NSRange> dividerRanges(const NoteMembers& members, std::size_t mostMemberBytes)
{
    const auto most = std::max(mostMemberBytes, kMostAttributesBytes);
    const auto member = members.read(kNoteAttributesMember, most);
    if (member.state != State::Read)
        return {};
    const bool isBinary = member.bytes.starts_with(kBinaryPropertyListStart);
    const bool isModest = isBinary ? valueCount(member.bytes) <= kMostAttributesValues
                                   : member.bytes.size() <= mostMemberBytes;
    if (isModest)
        return NoteAttributes::attributesFromData(member.bytes).dividerRanges;
    NSLog("The attributes of a note hold too much; its dividers stay as text");
    return {};
}

std::optional<std::u16string> recoveredText(const NSURL& url, const NoteMembers& members,
                                            NoteMembers::Member richText)
{
    if (richText.state == State::Unreadable || richText.state == State::TooLarge)
        return std::nullopt;
    logRecovery(url);
    const auto package = members.packageWithContents(kNoteRTFMember, std::move(richText));
    NSError error;
    return package ? noteCharactersFromRTFD(*package, error) : std::nullopt;
}

/// The characters of NoteText, by themselves; none when it cannot be decoded.
std::optional<std::u16string> decodedCharacters(std::string_view archive)
{
    NSError error;
    const auto text = unarchivedNoteText(archive, error);
    return text ? std::optional(std::u16string(text->string())) : std::nullopt;
}

} // namespace

std::optional<std::u16string> plainTextOfNotePackage(const NSURL& url, std::size_t mostMemberBytes)
{
    const auto members = NoteMembers::createWithURL(url);
    auto stored = members ? members->read(kNoteTextMember, mostMemberBytes) : NoteMembers::Member();
    if (!members || stored.state == State::Unreadable || stored.state == State::TooLarge)
        return std::nullopt;
    if (stored.state != State::Absent && stored.bytes.empty())
        return u"";
    if (stored.state == State::Read) {
        const auto characters = decodedCharacters(std::exchange(stored.bytes, {}));
        if (characters)
            return charactersWithDividers(*characters, dividerRanges(*members, mostMemberBytes));
    }
    auto richText = members->read(kNoteRTFMember, mostMemberBytes);
    if (richText.state != State::Absent)
        return recoveredText(url, *members, std::move(richText));
    return stored.state == State::Absent ? std::optional(std::u16string()) : std::nullopt;
}
