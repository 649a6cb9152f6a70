#include "cli/JSONText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace {

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

} // namespace

std::string lineOfJSON(const nlohmann::ordered_json& value)
{
    return withLineEndsEscaped(value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
}
