#include "documents/PageFileNames.h"

#include "platform/html/HTMLAttachmentTags.h"

#include <algorithm>

namespace {

// As HTMLAttachmentTags.h has them. Nothing else of a page begins so: "<" is escaped in text.
constexpr std::string_view kImageBeginning = R"(<img src="file:///)";
constexpr std::string_view kObjectBeginning = R"(<object data="file:///)";
constexpr std::string_view kObjectEnd = "</object>";

} // namespace

std::string pageWithFilesInFolder(std::string_view page, std::u16string_view folder)
{
    // The dot keeps a name with a colon from being taken for a scheme.
    const auto prefix = folder.empty() ? std::string("./") : percentEncodedForURLPath(folder) + "/";
    std::string rewritten;
    while (true) {
        const auto next = std::min(page.find('<'), page.size());
        rewritten += page.substr(0, next);
        page.remove_prefix(next);
        if (page.empty())
            return rewritten;
        if (page.starts_with(kImageBeginning)) {
            rewritten.append("<img src=\"").append(prefix);
            page.remove_prefix(kImageBeginning.size());
        } else if (page.starts_with(kObjectBeginning)) {
            page.remove_prefix(kObjectBeginning.size());
            const auto end = std::min(page.find(kObjectEnd), page.size());
            rewritten.append("<a href=\"").append(prefix).append(page.substr(0, end)).append("</a>");
            page.remove_prefix(std::min(end + kObjectEnd.size(), page.size()));
        } else {
            rewritten += '<';
            page.remove_prefix(1);
        }
    }
}
