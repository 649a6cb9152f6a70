#include "cli/JSONLines.h"

#include "cli/ErrorMessage.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace {

// Keeps the members in the order in which they are written here.
using JSON = nlohmann::ordered_json;

/// What some readers of lines end a line at, though JSON may hold it as it is: U+0085, U+2028 and U+2029. It
/// stands within texts only, where its escape means the same.
std::string withLineEndsEscaped(std::string_view json)
{
    constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kEscapes{
        {{"\xC2\x85", "\\u0085"}, {"\xE2\x80\xA8", "\\u2028"}, {"\xE2\x80\xA9", "\\u2029"}}};
    std::string escaped;
    while (!json.empty()) {
        const auto* const found = std::find_if(kEscapes.begin(), kEscapes.end(), [json](const auto& each) {
            return json.starts_with(each.first);
        });
        const auto isFound = found != kEscapes.end();
        escaped += isFound ? found->second : json.substr(0, 1);
        json.remove_prefix(isFound ? found->first.size() : 1);
    }
    return escaped;
}

std::string line(const JSON& value)
{
    return withLineEndsEscaped(value.dump(-1, ' ', false, JSON::error_handler_t::replace));
}

JSON hitValue(const SKSearchHit& hit)
{
    JSON value{{"url", hit.url.absoluteString()},
               {"path", hit.url.path()},
               {"score", hit.score},
               {"snippet", hit.snippet},
               {"parent", nullptr}};
    if (hit.parent)
        value["parent"] = hit.parent->absoluteString();
    return value;
}

} // namespace

std::string itemLine(const std::string& path, const std::optional<NSError>& error)
{
    JSON value{{"path", path}, {"error", nullptr}};
    if (error)
        value["error"]
            = JSON{{"domain", error->domain()}, {"code", error->code()}, {"message", errorMessage(*error)}};
    return line(value);
}

std::string hitsLine(std::span<const SKSearchHit> hits)
{
    JSON values = JSON::array();
    for (const auto& hit : hits)
        values.push_back(hitValue(hit));
    return line(values);
}

std::string statusLine(const IndexStatus& status)
{
    return line(JSON{{"documents", status.documentCount},
                     {"maximumIdentifier", status.maximumDocumentID},
                     {"size", status.byteCount},
                     {"format", status.formatVersion}});
}

std::string textLine(const std::string& path, const std::string& rule, const std::optional<std::string>& text)
{
    JSON value{{"path", path}, {"rule", rule}, {"text", nullptr}};
    if (text)
        value["text"] = *text;
    return line(value);
}
