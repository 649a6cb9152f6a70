#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

/// A value as one line of JSON that every reader of lines takes for one, in valid UTF-8.
[[nodiscard]] std::string lineOfJSON(const nlohmann::ordered_json& value);
