#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/media/XMLTextStream.h"

#include <optional>

/// The paper of a document's first section, in points.
struct WordPageLayout {
    std::optional<NSSize> paper;
    std::optional<NSEdgeInsets> margins;

    // Sections after the first one change nothing.
    void readSize(const XMLAttributes& attributes);
    void readMargins(const XMLAttributes& attributes);
};
