#pragma once

#include <algorithm>

namespace tarnwell {

// A rectangle of whole pixels.
struct Box {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  int right() const { return x + width; }
  int bottom() const { return y + height; }
  bool empty() const { return width <= 0 || height <= 0; }
  bool Contains(int px, int py) const {
    return px >= x && px < right() && py >= y && py < bottom();
  }
  bool operator==(const Box&) const = default;
};

// `box` made smaller by `dx` at the left and right and `dy` at top and bottom; never negative.
inline Box Inset(const Box& box, int dx, int dy) {
  return {box.x + dx, box.y + dy, std::max(0, box.width - 2 * dx),
          std::max(0, box.height - 2 * dy)};
}

inline Box Moved(const Box& box, int dx, int dy) {
  return {box.x + dx, box.y + dy, box.width, box.height};
}

// A box of this size in the middle of `around`.
inline Box Centred(const Box& around, int width, int height) {
  return {around.x + (around.width - width) / 2, around.y + (around.height - height) / 2, width,
          height};
}

// What both boxes have in common; empty (size 0) when they do not meet.
inline Box Intersection(const Box& a, const Box& b) {
  const int x = std::max(a.x, b.x);
  const int y = std::max(a.y, b.y);
  return {x, y, std::max(0, std::min(a.right(), b.right()) - x),
          std::max(0, std::min(a.bottom(), b.bottom()) - y)};
}

}  // namespace tarnwell
