#pragma once

#include <memory>
#include <pango/pangocairo.h>

/// Pango's handles, for the sources that set text.

struct GObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};

struct AttrListDeleter {
    void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
};

struct FontDescriptionDeleter {
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};

struct LayoutIteratorDeleter {
    void operator()(PangoLayoutIter* iterator) const { pango_layout_iter_free(iterator); }
};

struct TabArrayDeleter {
    void operator()(PangoTabArray* tabs) const { pango_tab_array_free(tabs); }
};

using TextContext = std::unique_ptr<PangoContext, GObjectDeleter>;
using TextLayout = std::unique_ptr<PangoLayout, GObjectDeleter>;
using LayoutIterator = std::unique_ptr<PangoLayoutIter, LayoutIteratorDeleter>;
using AttributeList = std::unique_ptr<PangoAttrList, AttrListDeleter>;
using TabArray = std::unique_ptr<PangoTabArray, TabArrayDeleter>;
using FontDescription = std::unique_ptr<PangoFontDescription, FontDescriptionDeleter>;

/// The largest length that is given to Pango, which counts 1024ths of a point in 32 bits.
inline constexpr double kMaximumTextExtent = 1e6;

/// Points in Pango's units, cut to kMaximumTextExtent.
[[nodiscard]] int pangoUnits(double points);
