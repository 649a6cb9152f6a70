#pragma once

#include <string>
#include <vector>

/// What the text at the end of a command's --help is made of. Paragraphs stand between empty lines.
struct HelpFooter {
    explicit HelpFooter(const std::string& footer);

    /// Every paragraph that is none of the following, its lines joined.
    std::vector<std::string> explanation;
    /// The lines of the paragraph "Examples:", without their indentation.
    std::vector<std::string> examples;
    /// The paragraph "Exit status:", without these words and with a capital letter.
    std::string exitStatus;
};
