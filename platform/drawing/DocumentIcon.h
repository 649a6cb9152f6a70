#pragma once

#include "platform/drawing/IconKinds.h"

#include <string_view>

class NSGraphicsContext;

/// Draws a page with a folded corner in a square of kIconSide points with its origin at the lower left: on it
/// the glyph of the kind and, unless the extension is empty, a band in the kind's colour with the extension
/// in capitals.
void drawDocumentIcon(const IconKind& kind, std::string_view extension, NSGraphicsContext& context);
