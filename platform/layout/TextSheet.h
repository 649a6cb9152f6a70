#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/layout/NSLayoutManager.h"
#include "platform/text/NSColor.h"
#include "platform/views/NSTextContainer.h"

/// How a text is put on a sheet.
struct TextSheetOptions {
    /// Of the whole sheet, in points. Margins leave the text at least one.
    double width = 600;
    NSEdgeInsets margins{20, 20, 20, 20};
    /// Null for none: the sheet is clear.
    NSColor::Ref backgroundColor = NSColor::textBackgroundColor();
    NSAppearance appearance = NSAppearance::Light;
    AttachmentImage image = {};
};

/// A text on one sheet, as high as it has to be: for pixels, PDF or SVG.
///
///     const TextSheet sheet(text, {.width = 480});
///     const auto data = sheet.surface().PNGRepresentation(sheet.drawing(), 2, &error);
class TextSheet {
public:
    TextSheet(NSAttributedString text, TextSheetOptions options);
    TextSheet(const TextSheet&) = delete;
    TextSheet& operator=(const TextSheet&) = delete;

    /// What the sheet is drawn on. A sheet longer than the surface's limits is refused there.
    [[nodiscard]] DrawingSurface surface() const;
    /// Valid as long as the sheet lives.
    [[nodiscard]] NSDrawing drawing() const;

    [[nodiscard]] const NSLayoutManager& layoutManager() const { return m_layoutManager; }

private:
    void draw(NSGraphicsContext& context) const;

    NSAttributedString m_text;
    TextSheetOptions m_options;
    NSTextContainer m_container;
    NSLayoutManager m_layoutManager;
};
