// The time of each pass per pixel, without a benchmark library: to compare the Windows build with
// the native one. The least of some runs over a few megapixels.

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "bench/generated_picture.h"
#include "engine/analysis.h"
#include "engine/color_rotation.h"
#include "engine/final_rotation.h"
#include "engine/pixel_adjustments.h"

namespace tarnwell {
namespace {

template <typename Pass>
void Time(const char* name, const PixelView& photo, Pass pass) {
  constexpr int kRuns = 12;
  double least = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const auto begin = std::chrono::steady_clock::now();
    pass();
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
    least = std::min(least, spent.count());
  }
  std::printf("%-12s %6.2f ns a pixel\n", name,
              least * 1e9 / static_cast<double>(photo.pixel_count()));
}

void TimeAll() {
  const auto picture = GeneratedPicture::OfMegapixels(2);
  const PixelView photo = picture->view();
  PixelArray out(photo.width, photo.height);
  AdjustmentSettings settings;
  settings.gain = 1.21;
  settings.saturation_multiplier = 1.13;
  const ToneTable table(settings);
  const BrightnessHistogram histogram = CountBrightness(photo);

  Time("histogram", photo, [&] {
    if (CountBrightness(photo) != histogram) std::puts("counts differ");
  });
  Time("analysis", photo, [&] {
    AnalysisPass analysis(photo, histogram, {760, 3}, 250);
    for (int part = 0; part < analysis.part_count(); ++part) analysis.Measure(part);
    if (analysis.found().count == 0) std::puts("nothing was measured");
  });
  Time("tones", photo, [&] {
    AdjustPiece(photo, photo, {0, 0, photo.width, photo.height}, settings, &table,
                out.mutable_view());
  });
  Time("hue", photo, [&] {
    for (int y = 0; y < photo.height; ++y) RotateHueOfRow(out.mutable_view(), y, 77);
  });
  PixelArray turned(photo.height, photo.width);
  const auto turn_into = [&](PixelArray& target) {
    TurnPixels(photo, Turn::kClockwise, 1, target.mutable_view());
  };
  Time("quarter turn", photo, [&] { turn_into(turned); });
  // The system's pages, which it clears as they are touched, are part of the time here.
  Time("  new memory", photo, [&] {
    PixelArray fresh(photo.height, photo.width);
    turn_into(fresh);
  });
}

}  // namespace
}  // namespace tarnwell

int main() { tarnwell::TimeAll(); }
