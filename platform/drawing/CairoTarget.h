#pragma once

#include "platform/drawing/NSGraphicsContext.h"

#include <cairo.h>
#include <memory>

/// Cairo's handles, for the sources that draw with it.

struct CairoSurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};

struct CairoContextDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

using CairoSurface = std::unique_ptr<cairo_surface_t, CairoSurfaceDeleter>;
using CairoContext = std::unique_ptr<cairo_t, CairoContextDeleter>;

/// What an NSGraphicsContext draws on.
struct CairoTarget {
    cairo_t* cairo;
};

/// While it lives, the origin is the upper left corner of a rectangle and y goes down, whether the context is
/// flipped or not: for what stands upright. The state before is restored when it goes.
class UprightOrigin {
public:
    UprightOrigin(NSGraphicsContext& context, NSRect rect)
        : m_cairo(context.target().cairo)
    {
        cairo_save(m_cairo);
        if (context.isFlipped()) {
            cairo_translate(m_cairo, rect.origin.x, rect.origin.y);
            return;
        }
        cairo_translate(m_cairo, rect.origin.x, rect.origin.y + rect.size.height);
        cairo_scale(m_cairo, 1, -1);
    }

    UprightOrigin(const UprightOrigin&) = delete;
    UprightOrigin& operator=(const UprightOrigin&) = delete;

    ~UprightOrigin() { cairo_restore(m_cairo); }

private:
    cairo_t* m_cairo;
};
