#pragma once

#include <span>
#include <vector>

#include "imaging/pixel_array.h"
#include "ui/look/box.h"
#include "ui/look/theme.h"

namespace tarnwell {

// Shapes with soft edges, drawn straight into pixels. Coordinates are in pixels; whole numbers are
// the corners between pixels, so that a box from 2 to 5 covers exactly three of them. Parts outside
// the picture are left out.

struct Point {
  double x = 0;
  double y = 0;
};

// A line through points, each joined to the one before it.
using Line = std::vector<Point>;

void FillBox(MutablePixelView pixels, const Box& box, Colour colour);

// A box with round corners; a radius of half the side makes a circle.
void FillRound(MutablePixelView pixels, const Box& box, double radius, Colour colour,
               double opacity = 1);
// Its outline, `width` pixels wide, inside the box.
void StrokeRound(MutablePixelView pixels, const Box& box, double radius, double width,
                 Colour colour);

void FillCircle(MutablePixelView pixels, Point centre, double radius, Colour colour);
void StrokeCircle(MutablePixelView pixels, Point centre, double radius, double width,
                  Colour colour);

// Lines with round ends and joints, as one figure: where they cross nothing is laid on twice.
void StrokeLines(MutablePixelView pixels, std::span<const Line> lines, double width, Colour colour);

// The inside of a closed line (even-odd).
void FillPolygon(MutablePixelView pixels, const Line& outline, Colour colour);

}  // namespace tarnwell
