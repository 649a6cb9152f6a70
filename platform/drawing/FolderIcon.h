#pragma once

class NSGraphicsContext;

/// Draws a folder in a square of kIconSide points with its origin at the lower left.
void drawFolderIcon(NSGraphicsContext& context);
