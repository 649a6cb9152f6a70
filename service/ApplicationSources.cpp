#include "service/ApplicationSources.h"

#include "note/NotePlainText.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentLimits.h"

namespace {

class TextOfNotePackages final : public NoteText {
public:
    [[nodiscard]] std::optional<std::string> noteTextOfPackage(const NSURL& url) const override
    {
        const auto text = plainTextOfNotePackage(url, ContentLimits().noteMemberBytes);
        return text ? std::optional(UTF8FromUTF16(*text)) : std::nullopt;
    }
};

} // namespace

ItemSources applicationSources()
{
    ItemSources sources;
    sources.noteText = std::make_shared<const TextOfNotePackages>();
    return sources;
}
