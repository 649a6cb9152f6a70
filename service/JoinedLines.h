#pragma once

#include <string>
#include <vector>

/// The texts, each but the last followed by a line break.
[[nodiscard]] inline std::string joinedLines(const std::vector<std::string>& texts)
{
    std::string joined;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        if (index > 0)
            joined += '\n';
        joined += texts[index];
    }
    return joined;
}
