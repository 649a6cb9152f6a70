#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/text/NSAppearance.h"

#include <cstddef>
#include <functional>

struct CairoTarget;
class NSBezierPath;
class NSColor;

/// Where a drawing has its origin: No is the lower left corner with y upwards, Yes the upper left with y
/// downwards, as in a text view. Text and images stand upright in both.
enum class Flipped { No, Yes };

/// What everything is drawn with. Lengths are points, edges are smooth. Nothing here fails: what cannot be
/// drawn (an empty rectangle, a pattern for a colour, a coordinate that is no number) leaves no ink, and what
/// goes wrong beneath is told by the surface when the drawing is done (DrawingSurface.h). Places more than a
/// million pixels away are drawn as if they were at that distance.
///
/// Lives as long as the drawing function that it was given to, on one thread.
class NSGraphicsContext final {
public:
    /// For surfaces and images; the target's own origin is the upper left corner of what is drawn on.
    NSGraphicsContext(CairoTarget& target, NSAppearance appearance, Flipped flipped);
    NSGraphicsContext(const NSGraphicsContext&) = delete;
    NSGraphicsContext& operator=(const NSGraphicsContext&) = delete;
    /// Restores all states that are still saved.
    ~NSGraphicsContext();

    /// The appearance in which dynamic colours are drawn.
    [[nodiscard]] NSAppearance appearance() const { return m_appearance; }

    [[nodiscard]] bool isFlipped() const { return m_flipped == Flipped::Yes; }

    /// The state is the clip and the coordinates. Restoring without a state saved does nothing.
    void saveGraphicsState();
    void restoreGraphicsState();

    void translate(double x, double y);
    /// A negative factor mirrors, text and images too; after 0 nothing is seen until the state is restored.
    void scale(double x, double y);
    /// What is drawn from here on appears within the rectangle only; nowhere, when it is empty.
    void clipToRect(NSRect rect);

    void fillRect(NSRect rect, const NSColor& color);
    /// The rectangle with its edges moved to the nearest pixels, so that it is drawn without soft edges, and
    /// the width of a line as whole pixels; nothing that was more than 0 becomes less than a pixel. Both as
    /// they are on a surface without pixels.
    [[nodiscard]] NSRect alignedToPixels(NSRect rect) const;
    [[nodiscard]] double wholePixels(double lineWidth) const;

    /// The ellipse in the rectangle.
    void fillOvalInRect(NSRect rect, const NSColor& color);
    /// The outline of the ellipse, half of its width on either side of it.
    void strokeOvalInRect(NSRect rect, double lineWidth, const NSColor& color);

    /// By the path's winding rule; what is open is closed.
    void fillPath(const NSBezierPath& path, const NSColor& color);
    /// With the path's width, caps and joins.
    void strokePath(const NSBezierPath& path, const NSColor& color);

    /// For what draws with the library itself.
    [[nodiscard]] CairoTarget& target() { return m_target; }

private:
    [[nodiscard]] bool hasPixels() const;
    bool setColor(const NSColor& color);
    bool addPath(const NSBezierPath& path);
    void hideAll();

    CairoTarget& m_target;
    NSAppearance m_appearance;
    Flipped m_flipped;
    std::size_t m_savedStates = 0;
};

/// A function that draws; called while the surface is made, or whenever a vector image is drawn.
using NSDrawing = std::function<void(NSGraphicsContext&)>;

/// Saves the state, and restores it when it goes.
class GraphicsState {
public:
    explicit GraphicsState(NSGraphicsContext& context)
        : m_context(context)
    {
        m_context.saveGraphicsState();
    }

    GraphicsState(const GraphicsState&) = delete;
    GraphicsState& operator=(const GraphicsState&) = delete;

    ~GraphicsState() { m_context.restoreGraphicsState(); }

private:
    NSGraphicsContext& m_context;
};
