#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Reads, writes and removes links and images of Markdown. Nothing is escaped: what a link holds comes out as
/// it went in.
namespace CVLMarkdown {

/// Whether the line is a link, "[text](link "title")", blanks before it left out. The text reaches from the
/// first "[" to the last "]", and the link stands between the last parentheses. Out-parameters may be absent;
/// they are set only when the answer is yes, `title` to the empty string when there is none.
[[nodiscard]] bool getLink(std::u16string_view line, std::u16string* link = nullptr,
                           std::u16string* text = nullptr, std::u16string* title = nullptr);

/// The same for an image, "![alternative text](link "title")".
[[nodiscard]] bool getImageLink(std::u16string_view line, std::u16string* link = nullptr,
                                std::u16string* altText = nullptr, std::u16string* title = nullptr);

/// The link; without a text, the link itself is its text. An empty title is none.
[[nodiscard]] std::u16string markdownLinkWithText(std::optional<std::u16string_view> text,
                                                  std::u16string_view link, std::u16string_view title = {});

[[nodiscard]] std::u16string markdownImageLinkWithAltText(std::u16string_view altText,
                                                          std::u16string_view imageLink,
                                                          std::u16string_view title = {});

/// The text without what matches "!\[.*\]\(.*\)" and then "!\[.*\]\[.*\]". The patterns are greedy: from
/// a line's first image to its last, everything goes, the text between them too, as images that stand on one
/// line belong together.
[[nodiscard]] std::u16string markdownByRemovingImages(std::u16string_view text);

} // namespace CVLMarkdown
