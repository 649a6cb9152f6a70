#pragma once

#include <string>
#include <string_view>

/// A PDF of one empty page, encrypted so that this password opens it: the format's oldest way, RC4 with 40
/// bits. With the empty password everybody can open it.
[[nodiscard]] std::string lockedPDF(std::string_view userPassword);
