#include "richtext/AttachmentNames.h"

#include "attachments/AttachmentExtensions.h"
#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSStringPaths.h"
#include "richtext/AttachmentRuns.h"
#include "strings/FilenameGeneration.h"

namespace {

std::u16string bracketedName(const NSTextAttachment& attachment)
{
    const auto& file = attachment.fileWrapper();
    if (!file)
        return {};
    const auto& name = file->filename() ? file->filename() : file->preferredFilename();
    return name && !name->empty() ? u"[" + *name + u"]" : std::u16string();
}

bool needsSpaceBefore(const NSAttributedString& text, NSUInteger location)
{
    return location < text.length()
        && !NSCharacterSet::whitespaceAndNewlineCharacterSet().characterIsMember(
            text.characterAtIndex(location));
}

} // namespace

NSAttributedString DynamicColors::attributedStringWithoutAttachments(const NSAttributedString& text)
{
    NSMutableAttributedString without(text);
    enumerateAttachments<NSTextAttachment>(
        without, [&without](const auto&, NSRange range) { without.deleteCharactersInRange(range); });
    return without.copy();
}

NSAttributedString
DynamicColors::attributedStringByReplacingAttachmentsWithNames(const NSAttributedString& text)
{
    NSMutableAttributedString named(text);
    enumerateAttachments<NSTextAttachment>(named, [&named](const auto& attachment, NSRange range) {
        named.removeAttribute(NSAttachmentAttributeName, range);
        named.replaceCharactersInRange(range, bracketedName(*attachment));
    });
    return named.copy();
}

std::u16string DynamicColors::generateName(const NSAttributedString& text)
{
    NSMutableAttributedString named(text);
    enumerateAttachments<NSTextAttachment>(named, [&named](const auto& attachment, NSRange range) {
        auto name = stringByDeletingPathExtension(CVLExtensions::displayName(*attachment));
        if (name.empty())
            return;
        if (needsSpaceBefore(named, NSMaxRange(range)))
            name += u' ';
        named.replaceCharactersInRange(range, name);
    });
    return TSExtensions::generateFilename(named.string());
}
