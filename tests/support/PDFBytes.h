#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Makes small PDFs: a page for each text, in a standard font, and a title when it is not empty. The texts
/// are ASCII without parentheses and backslashes.
[[nodiscard]] std::string pdfWithPages(const std::vector<std::string>& texts, std::string_view title = {});

/// A PDF whose page tree claims `count` pages but holds one.
[[nodiscard]] std::string pdfThatClaimsPages(std::string_view count);

/// A PDF of one page that draws a form ten times, which draws another ten times, and so on for `depth` forms:
/// a few kilobytes that would take for ever to draw.
[[nodiscard]] std::string pdfWithNestedForms(unsigned depth);
