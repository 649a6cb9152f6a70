#pragma once

#include <optional>
#include <string>
#include <string_view>

/// A link's target as a page writes it, as an absolute URL where `base` is one: blanks around it dropped,
/// what may not stand in a URL percent-encoded. Nothing is looked up. Empty for what stands for no URL.
[[nodiscard]] std::string resolvedURL(std::string_view reference, const std::string& base);

/// Whether what is written for others should not have such a link: one that would run something on its
/// reader, or that leads into the file system that it is opened on. Blanks and controls in the scheme do not
/// hide it. All who write links ask here.
[[nodiscard]] bool isLinkToBeLeftOut(std::u16string_view target);

struct DataURL {
    /// In lower case; "text/plain" when the URL names none.
    std::string mimeType;
    std::string bytes;
};

/// What a data URL holds; none for another URL and for one whose Base64 is damaged.
[[nodiscard]] std::optional<DataURL> contentsOfDataURL(std::string_view url);
