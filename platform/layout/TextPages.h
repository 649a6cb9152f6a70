#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/layout/NSLayoutManager.h"
#include "platform/text/NSColor.h"
#include "platform/views/NSTextContainer.h"

#include <cstddef>
#include <vector>

/// The paper that most of the world prints on, in points.
inline constexpr NSSize kPaperA4{595, 842};

/// How a text is put on pages.
struct TextPagesOptions {
    NSSize paper = kPaperA4;
    /// Leave the text at least a point each way.
    NSEdgeInsets margins{56, 56, 56, 56};
    /// Null for none: the pages are clear.
    NSColor::Ref backgroundColor = NSColor::textBackgroundColor();
    NSAppearance appearance = NSAppearance::Light;
    AttachmentImage image = {};
};

/// A text on pages, as many as it needs: at least one.
///
/// Pages are cut between lines, in tables too: every line stands whole on one page, but for one that is
/// higher than a page, of which the beginning is seen. What is empty at a cut is left out. Time is in
/// proportion to the text, however many pages there are.
///
///     const TextPages pages(text, {});
///     const auto data = pages.surface().PDFRepresentation(pages.drawings(), &error);
class TextPages {
public:
    TextPages(NSAttributedString text, TextPagesOptions options);
    TextPages(const TextPages&) = delete;
    TextPages& operator=(const TextPages&) = delete;

    [[nodiscard]] std::size_t count() const { return m_pages.size(); }

    /// What each page is drawn on.
    [[nodiscard]] DrawingSurface surface() const;
    /// One for each page; valid as long as the pages live.
    [[nodiscard]] std::vector<NSDrawing> drawings() const;

    /// What of the text stands on a page.
    struct Page {
        /// In the column: what is at `top` stands at the page's upper margin.
        double top = 0;
        double bottom = 0;
        /// The characters; several ranges where a table's row goes on over the cut.
        std::vector<NSRange> ranges;
    };

    [[nodiscard]] const std::vector<Page>& pages() const { return m_pages; }

private:
    void draw(const Page& page, NSGraphicsContext& context) const;

    NSAttributedString m_text;
    TextPagesOptions m_options;
    NSTextContainer m_container;
    NSLayoutManager m_layoutManager;
    std::vector<Page> m_pages;
};
