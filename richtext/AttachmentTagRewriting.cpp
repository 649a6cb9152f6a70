// The tag of a file is exactly known, so the page is searched for tags and not parsed. A page has as many
// tags as there are files, and searching it once for each would be quadratic; instead one pass stops at
// whatever begins as the tag of a file, and looks the file up.
//
// The pass gives what searching name after name gives, because two such tags share no character and no
// rewriting makes a new one: a tag begins with one of two texts, text of the page and names in tags have
// their "<" escaped, and what is put in for a tag ends as a tag does.

#include "richtext/AttachmentTagRewriting.h"

#include "platform/foundation/Base64.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLAttachmentTags.h"
#include "platform/types/UTType.h"

#include <fmt/format.h>

#include <array>
#include <string_view>
#include <unordered_map>

namespace {

constexpr std::array<std::string_view, 2> kTagBeginnings{R"(<img src="file:///)",
                                                         R"(<object data="file:///)"};
constexpr std::string_view kTypeOfUnknownImages = "application/octet-stream";

enum class Kind { Image, PDF, Other };

struct Rewriting {
    std::string tag;
    std::u16string name;
    std::shared_ptr<const NSTextAttachment> attachment;
    Kind kind;

    [[nodiscard]] std::string replacement() const;
};

std::string Rewriting::replacement() const
{
    if (kind != Kind::Image)
        return {};
    const auto type = UTType::typeWithIdentifier(UTF8FromUTF16(attachment->fileType().value_or(u"")));
    const auto mimeType = type ? type->preferredMIMEType() : std::nullopt;
    const auto* contents = attachment->fileWrapper()->regularFileContents();
    return fmt::format(R"(<img style="max-width: 100%" src="data:{};base64,{}" alt="{}">)",
                       mimeType.value_or(std::string(kTypeOfUnknownImages)),
                       contents ? base64EncodedString(contents->bytes) : std::string(), htmlNameInTag(name));
}

Kind kindOf(std::u16string_view fileType)
{
    if (UTType::identifierConformsToType(fileType, kUTTypeImage))
        return Kind::Image;
    return UTType::identifierConformsToType(fileType, kUTTypePDF) ? Kind::PDF : Kind::Other;
}

/// In the order of the names; without those whose attachment has no type.
std::vector<Rewriting> rewritingsOf(const AttachmentsByName& attachments)
{
    std::vector<Rewriting> rewritings;
    for (const auto& [name, attachment] : attachments) {
        const auto fileType = attachment->fileType();
        if (!fileType)
            continue;
        const auto kind = kindOf(*fileType);
        auto tag = kind == Kind::Other ? htmlObjectTag(name) : htmlImageTag(name);
        rewritings.push_back({std::move(tag), name, attachment, kind});
    }
    return rewritings;
}

/// The part of a tag that tells it from others, up to the quotation mark behind the encoded name; empty when
/// no tag begins at the location.
std::string_view tagHead(std::string_view html, std::size_t location)
{
    const auto rest = html.substr(location);
    for (const auto beginning : kTagBeginnings) {
        if (!rest.starts_with(beginning))
            continue;
        const auto quote = rest.find('"', beginning.size());
        return quote == std::string_view::npos ? std::string_view() : rest.substr(0, quote);
    }
    return {};
}

std::string rewrittenInOnePass(std::string_view html, const std::vector<Rewriting>& rewritings)
{
    std::unordered_map<std::string_view, const Rewriting*> byHead;
    for (const auto& rewriting : rewritings)
        byHead.emplace(tagHead(rewriting.tag, 0), &rewriting);
    std::string result;
    std::size_t copied = 0;
    for (auto place = html.find('<'); place != std::string_view::npos; place = html.find('<', place)) {
        const auto found = byHead.find(tagHead(html, place));
        if (found == byHead.end() || !html.substr(place).starts_with(found->second->tag)) {
            ++place;
            continue;
        }
        result += html.substr(copied, place - copied);
        result += found->second->replacement();
        place += found->second->tag.size();
        copied = place;
    }
    return result.append(html.substr(copied));
}

} // namespace

std::string htmlByRewritingAttachmentTags(std::string_view html, const AttachmentsByName& attachments)
{
    return rewrittenInOnePass(html, rewritingsOf(attachments));
}
