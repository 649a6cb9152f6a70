#include "platform/drawing/NSBezierPath.h"

#include <gtest/gtest.h>

namespace {

using Type = NSBezierPath::ElementType;

void expectNear(NSRect rect, NSRect expected)
{
    EXPECT_NEAR(rect.origin.x, expected.origin.x, 1e-9);
    EXPECT_NEAR(rect.origin.y, expected.origin.y, 1e-9);
    EXPECT_NEAR(rect.size.width, expected.size.width, 1e-9);
    EXPECT_NEAR(rect.size.height, expected.size.height, 1e-9);
}

TEST(NSBezierPath, IsEmptyAtFirst)
{
    const NSBezierPath path;
    EXPECT_TRUE(path.isEmpty());
    EXPECT_EQ(path.bounds(), NSRect{});
    EXPECT_EQ(path.lineWidth(), 1);
    EXPECT_EQ(path.lineCapStyle(), NSLineCapStyle::Butt);
    EXPECT_EQ(path.lineJoinStyle(), NSLineJoinStyle::Miter);
    EXPECT_EQ(path.windingRule(), NSWindingRule::NonZero);
}

TEST(NSBezierPath, GoesAroundARectangle)
{
    const auto path = NSBezierPath::bezierPathWithRect(NSMakeRect(1, 2, 3, 4));
    const std::vector<NSBezierPath::Element> expected{
        {Type::MoveTo, {NSPoint{1, 2}}}, {Type::LineTo, {NSPoint{4, 2}}}, {Type::LineTo, {NSPoint{4, 6}}},
        {Type::LineTo, {NSPoint{1, 6}}}, {Type::ClosePath, {}},
    };
    EXPECT_EQ(path.elements(), expected);
    EXPECT_EQ(path.bounds(), NSMakeRect(1, 2, 3, 4));
}

TEST(NSBezierPath, TouchesTheSidesOfAnOvalsRectangle)
{
    expectNear(NSBezierPath::bezierPathWithOvalInRect(NSMakeRect(10, 20, 30, 8)).bounds(),
               NSMakeRect(10, 20, 30, 8));
}

// A quarter of a circle and its curve differ by less than 3 in 10,000 of the radius.
TEST(NSBezierPath, FollowsACircle)
{
    const auto path = NSBezierPath::bezierPathWithOvalInRect(NSMakeRect(-1, -1, 2, 2));
    NSPoint start;
    for (const auto& [type, points] : path.elements()) {
        if (type == Type::CurveTo) {
            const auto x = (start.x + 3 * points[0].x + 3 * points[1].x + points[2].x) / 8;
            const auto y = (start.y + 3 * points[0].y + 3 * points[1].y + points[2].y) / 8;
            EXPECT_NEAR(x * x + y * y, 1, 6e-4);
        }
        if (type != Type::ClosePath)
            start = type == Type::CurveTo ? points[2] : points[0];
    }
}

TEST(NSBezierPath, CutsRadiiToHalfASide)
{
    const auto rect = NSMakeRect(0, 0, 10, 4);
    EXPECT_EQ(NSBezierPath::bezierPathWithRoundedRect(rect, 100, 100).elements(),
              NSBezierPath::bezierPathWithOvalInRect(rect).elements());
    EXPECT_EQ(NSBezierPath::bezierPathWithRoundedRect(rect, 0, 3).elements(),
              NSBezierPath::bezierPathWithRect(rect).elements());
}

TEST(NSBezierPath, HasNoShapeInAnEmptyRectangle)
{
    EXPECT_TRUE(NSBezierPath::bezierPathWithRect(NSMakeRect(0, 0, 0, 4)).isEmpty());
    EXPECT_TRUE(NSBezierPath::bezierPathWithOvalInRect(NSMakeRect(0, 0, 4, -1)).isEmpty());
    EXPECT_TRUE(NSBezierPath::bezierPathWithRoundedRect(NSMakeRect(0, 0, 0, 0), 1, 1).isEmpty());
}

TEST(NSBezierPath, BoundsACurveByItsExtremesNotByItsControlPoints)
{
    // y is 3t(1-t)^2 + 3t^2(1-t) = 3t(1-t), at most 3/4.
    NSBezierPath path;
    path.moveToPoint({0, 0});
    path.curveToPoint({3, 0}, {1, 1}, {2, 1});
    expectNear(path.bounds(), NSMakeRect(0, 0, 3, 0.75));
}

TEST(NSBezierPath, BoundsACurveThatTurnsTwice)
{
    // y is 3t(1-t)^2 - 3t^2(1-t) = 3t(1-t)(1-2t), whose extremes are at (1 -+ 1/sqrt(3))/2: -+ sqrt(3)/6.
    NSBezierPath path;
    path.moveToPoint({0, 0});
    path.curveToPoint({3, 0}, {1, 1}, {2, -1});
    expectNear(path.bounds(), NSMakeRect(0, -0.28867513459481287, 3, 0.57735026918962573));
}

TEST(NSBezierPath, BeginsAtTheFirstPointOfALineOrCurve)
{
    NSBezierPath path;
    path.lineToPoint({5, 6});
    EXPECT_EQ(path.elements().front(), (NSBezierPath::Element{Type::MoveTo, {NSPoint{5, 6}}}));
    NSBezierPath curve;
    curve.closePath();
    EXPECT_TRUE(curve.isEmpty());
    curve.curveToPoint({9, 9}, {1, 2}, {3, 4});
    EXPECT_EQ(curve.elements().front(), (NSBezierPath::Element{Type::MoveTo, {NSPoint{1, 2}}}));
}

TEST(NSBezierPath, GoesOnFromTheStartOfWhatWasClosed)
{
    NSBezierPath path;
    path.moveToPoint({0, 0});
    path.lineToPoint({10, 0});
    path.closePath();
    // The curve begins at (0, 0) again, so y reaches 3/4 as above.
    path.curveToPoint({3, 0}, {1, 1}, {2, 1});
    expectNear(path.bounds(), NSMakeRect(0, 0, 10, 0.75));
}

TEST(NSBezierPath, AppendsAnotherPathAndItself)
{
    auto path = NSBezierPath::bezierPathWithRect(NSMakeRect(0, 0, 1, 1));
    path.appendBezierPath(NSBezierPath::bezierPathWithRect(NSMakeRect(5, 5, 2, 2)));
    EXPECT_EQ(path.bounds(), NSMakeRect(0, 0, 7, 7));
    path.appendBezierPath(path);
    EXPECT_EQ(path.elements().size(), 20U);
}

} // namespace
