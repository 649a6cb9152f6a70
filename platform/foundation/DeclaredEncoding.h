#pragma once

#include <string>
#include <string_view>

/// The charset that a text says about itself near its start: in an XML declaration, an HTML <meta> element,
/// or an editor's "coding:" line. Empty when it says nothing. The name is as it stands there and may be
/// wrong.
[[nodiscard]] std::string declaredCharsetName(std::string_view bytes);
