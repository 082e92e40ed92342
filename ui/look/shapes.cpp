#include "ui/look/shapes.h"

#include <cmath>
#include <limits>

namespace tarnwell {
namespace {

void Lay(std::uint8_t* pixel, Colour colour, double opacity) {
  const auto lay = [opacity](std::uint8_t& channel, std::uint8_t over) {
    channel = static_cast<std::uint8_t>(std::lround(channel + (over - channel) * opacity));
  };
  lay(pixel[kRed], colour.red);
  lay(pixel[kGreen], colour.green);
  lay(pixel[kBlue], colour.blue);
}

Box Inside(MutablePixelView pixels, double left, double top, double right, double bottom) {
  const Box wanted = {static_cast<int>(std::floor(left)), static_cast<int>(std::floor(top)),
                      static_cast<int>(std::ceil(right) - std::floor(left)),
                      static_cast<int>(std::ceil(bottom) - std::floor(top))};
  return Intersection(wanted, {0, 0, pixels.width, pixels.height});
}

// Lays `colour` on every pixel of `area`, as far as `coverage` of the pixel's centre says.
template <typename Coverage>
void Cover(MutablePixelView pixels, const Box& area, Colour colour, Coverage coverage) {
  for (int y = area.y; y < area.bottom(); ++y) {
    for (int x = area.x; x < area.right(); ++x) {
      const double covered = coverage(Point{x + 0.5, y + 0.5});
      if (covered > 0) Lay(pixels.at(x, y), colour, std::min(covered, 1.0));
    }
  }
}

// How much of a pixel lies inside a figure whose edge is `distance` away (negative inside).
double EdgeCoverage(double distance) { return std::clamp(0.5 - distance, 0.0, 1.0); }

double DistanceToRound(Point p, const Box& box, double radius) {
  const double half_width = box.width / 2.0;
  const double half_height = box.height / 2.0;
  radius = std::min({radius, half_width, half_height});
  const double dx = std::abs(p.x - box.x - half_width) - half_width + radius;
  const double dy = std::abs(p.y - box.y - half_height) - half_height + radius;
  return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) -
         radius;
}

double DistanceToSegment(Point p, Point a, Point b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double length = dx * dx + dy * dy;
  const double along =
      length > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0) : 0;
  return std::hypot(p.x - a.x - along * dx, p.y - a.y - along * dy);
}

double DistanceToLines(Point p, std::span<const Line> lines) {
  double nearest = std::numeric_limits<double>::max();
  for (const Line& line : lines) {
    for (std::size_t i = 1; i < line.size(); ++i) {
      nearest = std::min(nearest, DistanceToSegment(p, line[i - 1], line[i]));
    }
  }
  return nearest;
}

bool IsInside(Point p, const Line& outline) {
  bool inside = false;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point a = outline[i];
    const Point b = outline[(i + 1) % outline.size()];
    if ((a.y > p.y) == (b.y > p.y)) continue;
    if (p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
  }
  return inside;
}

struct Bounds {
  double left = std::numeric_limits<double>::max();
  double top = std::numeric_limits<double>::max();
  double right = std::numeric_limits<double>::lowest();
  double bottom = std::numeric_limits<double>::lowest();

  void Add(const Line& line) {
    for (const Point& p : line) {
      left = std::min(left, p.x);
      top = std::min(top, p.y);
      right = std::max(right, p.x);
      bottom = std::max(bottom, p.y);
    }
  }
  bool empty() const { return left > right; }
};

}  // namespace

void FillBox(MutablePixelView pixels, const Box& box, Colour colour) {
  const Box area = Intersection(box, {0, 0, pixels.width, pixels.height});
  for (int y = area.y; y < area.bottom(); ++y) {
    for (int x = area.x; x < area.right(); ++x) {
      std::uint8_t* pixel = pixels.at(x, y);
      pixel[kBlue] = colour.blue;
      pixel[kGreen] = colour.green;
      pixel[kRed] = colour.red;
    }
  }
}

void FillRound(MutablePixelView pixels, const Box& box, double radius, Colour colour,
               double opacity) {
  const Box area = Intersection(box, {0, 0, pixels.width, pixels.height});
  Cover(pixels, area, colour,
        [&](Point p) { return EdgeCoverage(DistanceToRound(p, box, radius)) * opacity; });
}

void StrokeRound(MutablePixelView pixels, const Box& box, double radius, double width,
                 Colour colour) {
  const Box area = Intersection(box, {0, 0, pixels.width, pixels.height});
  Cover(pixels, area, colour, [&](Point p) {
    const double distance = DistanceToRound(p, box, radius);
    return EdgeCoverage(distance) - EdgeCoverage(distance + width);
  });
}

void FillCircle(MutablePixelView pixels, Point centre, double radius, Colour colour) {
  const Box area = Inside(pixels, centre.x - radius - 1, centre.y - radius - 1,
                          centre.x + radius + 1, centre.y + radius + 1);
  Cover(pixels, area, colour,
        [&](Point p) { return EdgeCoverage(std::hypot(p.x - centre.x, p.y - centre.y) - radius); });
}

void StrokeCircle(MutablePixelView pixels, Point centre, double radius, double width,
                  Colour colour) {
  const double reach = radius + width / 2 + 1;
  const Box area =
      Inside(pixels, centre.x - reach, centre.y - reach, centre.x + reach, centre.y + reach);
  Cover(pixels, area, colour, [&](Point p) {
    const double off = std::abs(std::hypot(p.x - centre.x, p.y - centre.y) - radius);
    return EdgeCoverage(off - width / 2);
  });
}

void StrokeLines(MutablePixelView pixels, std::span<const Line> lines, double width,
                 Colour colour) {
  Bounds bounds;
  for (const Line& line : lines) bounds.Add(line);
  if (bounds.empty()) return;
  const double reach = width / 2 + 1;
  const Box area = Inside(pixels, bounds.left - reach, bounds.top - reach, bounds.right + reach,
                          bounds.bottom + reach);
  Cover(pixels, area, colour,
        [&](Point p) { return EdgeCoverage(DistanceToLines(p, lines) - width / 2); });
}

void FillPolygon(MutablePixelView pixels, const Line& outline, Colour colour) {
  Bounds bounds;
  bounds.Add(outline);
  if (bounds.empty()) return;
  constexpr int kSteps = 4;
  const Box area = Inside(pixels, bounds.left, bounds.top, bounds.right, bounds.bottom);
  Cover(pixels, area, colour, [&](Point centre) {
    int hits = 0;
    for (int row = 0; row < kSteps; ++row) {
      for (int column = 0; column < kSteps; ++column) {
        const Point sample = {centre.x - 0.5 + (column + 0.5) / kSteps,
                              centre.y - 0.5 + (row + 0.5) / kSteps};
        hits += IsInside(sample, outline);
      }
    }
    return static_cast<double>(hits) / (kSteps * kSteps);
  });
}

}  // namespace tarnwell
