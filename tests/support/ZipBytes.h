#pragma once

#include <string>
#include <string_view>
#include <vector>

struct ZipMember {
    std::string name;
    std::string bytes;
};

/// A zip file with these members, deflated; encrypted when there is a password.
[[nodiscard]] std::string zipOf(const std::vector<ZipMember>& members, std::string_view password = {});
