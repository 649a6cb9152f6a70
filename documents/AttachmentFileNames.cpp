#include "documents/AttachmentFileNames.h"

#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSTextAttachment.h"
#include "richtext/AttachmentRuns.h"

#include <map>
#include <set>
#include <string>

namespace {

std::u16string numberedName(const std::u16string& name, std::size_t number)
{
    const auto extension = pathExtension(name);
    auto numbered = stringByDeletingPathExtension(name) + u" " + UTF16FromUTF8(std::to_string(number));
    return extension.empty() ? numbered : numbered + u"." + extension;
}

} // namespace

void makeFileNamesUnique(const NSAttributedString& text)
{
    std::set<std::u16string> taken;
    std::set<const NSFileWrapper*> seen;
    // Where counting goes on for a name, so that a thousand files of one name are counted once.
    std::map<std::u16string, std::size_t> numbers;
    enumerateAttachments<NSTextAttachment>(text, [&](const auto& attachment, NSRange /*range*/) {
        const auto& file = attachment->fileWrapper();
        if (!file || !file->filename() || !seen.insert(file.get()).second)
            return;
        const auto original = *file->filename();
        auto name = original;
        for (auto& number = numbers.try_emplace(original, 1).first->second; !taken.insert(name).second;)
            name = numberedName(original, ++number);
        file->setFilename(name);
        file->setPreferredFilename(name);
    });
}
