#pragma once

#include <cstdint>

/// What of the page paragraphs are set by, in twips.
struct RTFPage {
    std::int32_t textWidth = 8640;
    std::int32_t defaultTab = 0;
};
