#include "cli/JSONLines.h"

#include "cli/ErrorMessage.h"
#include "cli/JSONText.h"

#include <nlohmann/json.hpp>

namespace {

// Keeps the members in the order in which they are written here.
using JSON = nlohmann::ordered_json;

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
    return lineOfJSON(value);
}

std::string hitsLine(std::span<const SKSearchHit> hits)
{
    JSON values = JSON::array();
    for (const auto& hit : hits)
        values.push_back(hitValue(hit));
    return lineOfJSON(values);
}

std::string statusLine(const IndexStatus& status)
{
    return lineOfJSON(JSON{{"documents", status.documentCount},
                           {"maximumIdentifier", status.maximumDocumentID},
                           {"size", status.byteCount},
                           {"format", status.formatVersion}});
}

std::string textLine(const std::string& path, const std::string& rule, const std::optional<std::string>& text)
{
    JSON value{{"path", path}, {"rule", rule}, {"text", nullptr}};
    if (text)
        value["text"] = *text;
    return lineOfJSON(value);
}
