// The tag of a file is exactly known, so the page is searched for tags and not parsed. A page has as many
// tags as there are files, and searching it once for each would be quadratic; instead one pass stops at
// whatever begins as the tag of a file, and looks the file up.
//
// The pass gives what searching name after name gives, because two such tags share no character and no
// rewriting makes a new one: a tag begins with one of two texts, text of the page has its "<" escaped, and
// what is put in for a tag ends as a tag does. Names are the exception, for the writer takes them as they
// are. Where one holds the beginning of a tag, be it the name of a file that is rewritten or not, order
// matters and the names are taken one after the other. Each tag has its name percent-encoded too, so that the
// page itself shows such names.

#include "richtext/AttachmentTagRewriting.h"

#include "platform/foundation/Base64.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLAttachmentTags.h"
#include "platform/types/UTType.h"

#include <fmt/format.h>

#include <algorithm>
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
                       contents ? base64EncodedString(contents->bytes) : std::string(), UTF8FromUTF16(name));
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

bool hasNameWithTagBeginning(std::string_view html)
{
    return std::any_of(kTagBeginnings.begin(), kTagBeginnings.end(), [html](std::string_view beginning) {
        return html.find(percentEncodedForURLPath(UTF16FromUTF8(beginning))) != std::string_view::npos;
    });
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

std::string rewrittenOnce(std::string_view html, const Rewriting& rewriting)
{
    const auto& tag = rewriting.tag;
    std::string result;
    std::size_t copied = 0;
    for (auto place = html.find(tag); place != std::string_view::npos; place = html.find(tag, copied)) {
        result += html.substr(copied, place - copied);
        result += rewriting.replacement();
        copied = place + tag.size();
    }
    return result.append(html.substr(copied));
}

} // namespace

std::string htmlByRewritingAttachmentTags(std::string html, const AttachmentsByName& attachments)
{
    const auto rewritings = rewritingsOf(attachments);
    if (!hasNameWithTagBeginning(html))
        return rewrittenInOnePass(html, rewritings);
    for (const auto& rewriting : rewritings) {
        if (html.find(rewriting.tag) != std::string::npos)
            html = rewrittenOnce(html, rewriting);
    }
    return html;
}
