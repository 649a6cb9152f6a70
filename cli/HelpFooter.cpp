#include "cli/HelpFooter.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view kExamples = "Examples:";
constexpr std::string_view kExitStatus = "Exit status:";

std::vector<std::string_view> pieces(std::string_view text, std::string_view separator)
{
    std::vector<std::string_view> found;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = std::min(text.find(separator, start), text.size());
        if (end > start)
            found.push_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    return found;
}

std::string_view withoutIndentation(std::string_view line)
{
    return line.substr(std::min(line.find_first_not_of(' '), line.size()));
}

std::string joined(std::string_view paragraph)
{
    std::string text(paragraph);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::string capitalized(std::string text)
{
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z')
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    return text;
}

} // namespace

HelpFooter::HelpFooter(const std::string& footer)
{
    for (const auto paragraph : pieces(footer, "\n\n")) {
        if (paragraph.starts_with(kExamples)) {
            for (const auto line : pieces(paragraph.substr(kExamples.size()), "\n"))
                examples.emplace_back(withoutIndentation(line));
        } else if (paragraph.starts_with(kExitStatus)) {
            exitStatus = capitalized(joined(withoutIndentation(paragraph.substr(kExitStatus.size()))));
        } else {
            explanation.push_back(joined(paragraph));
        }
    }
}
