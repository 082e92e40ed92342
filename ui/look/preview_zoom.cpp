#include "ui/look/preview_zoom.h"

#include <cmath>

namespace tarnwell {
namespace {

constexpr double kFactorOfNotch = 1.25;
// Ten turns up and ten down end at the size of the start, in spite of rounding.
constexpr double kNearlyOne = 1.01;

// The middle of the view along one side of the photo, of which `shown` pixels are seen.
double HeldMiddle(double middle, double side, int shown) {
  if (side <= shown) return 0.5;
  const double margin = shown / (2 * side);
  return std::clamp(middle, margin, 1 - margin);
}

PreviewZoom Held(PreviewZoom zoom, const Box& client, const Box& whole) {
  zoom.x = HeldMiddle(zoom.x, whole.width * zoom.factor, client.width);
  zoom.y = HeldMiddle(zoom.y, whole.height * zoom.factor, client.height);
  return zoom;
}

}  // namespace

Box EnlargedBox(const PreviewZoom& zoom, const Box& client, const Box& whole) {
  if (!zoom.enlarged()) return whole;
  const double width = whole.width * zoom.factor;
  const double height = whole.height * zoom.factor;
  const auto round = [](double at) { return static_cast<int>(std::lround(at)); };
  return {client.x + round(client.width / 2.0 - zoom.x * width),
          client.y + round(client.height / 2.0 - zoom.y * height), round(width), round(height)};
}

PreviewZoom Turned(const PreviewZoom& zoom, const Box& client, const Box& whole, double notches,
                   int x, int y, double most) {
  if (whole.empty()) return zoom;
  const double factor =
      std::clamp(zoom.factor * std::pow(kFactorOfNotch, notches), 1.0, std::max(1.0, most));
  if (factor < kNearlyOne) return {};
  const auto middle = [&](double now, double side, double from_middle) {
    return now + from_middle / (side * zoom.factor) - from_middle / (side * factor);
  };
  PreviewZoom turned = {factor, middle(zoom.x, whole.width, x - (client.x + client.width / 2.0)),
                        middle(zoom.y, whole.height, y - (client.y + client.height / 2.0))};
  return Held(turned, client, whole);
}

PreviewZoom Pulled(const PreviewZoom& zoom, const Box& client, const Box& whole, int dx, int dy) {
  if (whole.empty() || !zoom.enlarged()) return zoom;
  PreviewZoom pulled = zoom;
  pulled.x -= dx / (whole.width * zoom.factor);
  pulled.y -= dy / (whole.height * zoom.factor);
  return Held(pulled, client, whole);
}

}  // namespace tarnwell
