#pragma once

#include <string>
#include <string_view>

/// The text under which a document's name is searched: the name, and behind it its words split at case
/// changes and between letters and digits where it has any: "IMG2024TripRome.jpg" is also "IMG 2024 Trip Rome
/// jpg".
[[nodiscard]] std::string searchableName(std::string_view name);
