// How far the preview is from what the full correction then gives: for each module, the corrected
// thumbnail beside the full result shrunk to the same size, as the window shows one after the
// other.
//
//   preview_agreement [MEGAPIXELS...]      (1, 12 and 48 unless said)
//
// Prints, per channel value in levels 0 to 255, the mean difference and the one that 99 % keep
// within.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <vector>

#include "bench/generated_picture.h"
#include "console/console_dialogs.h"
#include "console/console_window.h"
#include "engine/adjust_photo.h"
#include "imaging/thumbnail.h"
#include "modules/white_balance.h"

namespace tarnwell {
namespace {

struct Agreement {
  double mean = 0;
  int percentile = 0;  // 99th
};

// Of two pictures of one size; a difference of 256 stands for pictures of different sizes.
Agreement Compare(const PixelView& a, const PixelView& b) {
  if (a.width != b.width || a.height != b.height || a.empty()) return {256, 256};
  std::array<std::size_t, 256> counts = {};
  for (std::size_t i = 0; i < a.byte_count(); ++i) {
    if (i % kBytesPerPixel != kUnused) ++counts[std::abs(a.data[i] - b.data[i])];
  }
  const double values = 3.0 * static_cast<double>(a.pixel_count());
  Agreement agreement;
  double seen = 0;
  for (int level = 0; level < 256; ++level) {
    agreement.mean += level * static_cast<double>(counts[level]) / values;
    if (seen < 0.99 * values) agreement.percentile = level;
    seen += static_cast<double>(counts[level]);
  }
  return agreement;
}

struct Case {
  const char* name;
  std::function<void(Module1&, frmModules&)> set;
};

// Switches one module on and moves its sliders.
auto Module(int module, std::vector<std::pair<int, int>> sliders = {}) {
  return [=](Module1&, frmModules& panel) {
    panel.open[module] = 1;
    for (const auto& [slider, value] : sliders) SetSliderValue(panel, slider, value);
  };
}

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases = {
      {"1 Smart, of the thumbnail", Module(1)},
      {"1 Smart, of the full photo",
       [](Module1& app, frmModules& panel) {
         panel.open[1] = 1;
         app.analyze_full_source = true;
       }},
      {"2 White balance",
       [](Module1&, frmModules& panel) {
         panel.open[2] = 1;
         panel.white_balance_mode = WhiteBalanceMode::kPickedPixel;
         SetPickedWhite(panel, {240, 220, 190});
       }},
      {"3 Brightness +30", Module(3, {{3, 30}})},
      {"4 Contrast +30", Module(4, {{4, 30}})},
      {"5 Saturation +30", Module(5, {{5, 30}})},
      {"6 Hue",
       [](Module1&, frmModules& panel) {
         panel.open[6] = 1;
         MoveHueMarker(panel.hue, 70, 40);
       }},
      {"7 Noise, at first", Module(7)},
      {"7 Noise, strong", Module(7, {{7, 80}, {8, 80}})},
      {"7 Noise, threshold only", Module(7, {{7, 80}, {8, 10}})},
      {"9 Rotation", Module(9)},
      {"12 Focus, at first", Module(12)},
      {"12 Focus, strong", Module(12, {{10, 10}, {11, 60}})},
      {"12 Focus, fine", Module(12, {{10, 1}, {11, 60}})},
      {"13 Color rotation", Module(13, {{12, 60}})},
  };
  return cases;
}

// Only the module of the case is on: each is looked at alone.
Agreement Run(const Case& with, const Picture& photo, ConsoleSystem& system, Dialogs& dialogs) {
  StartingPoint start;
  start.modules.open.fill(0);
  with.set(start.app, start.modules);
  ConsoleWindow window(
      start, system, dialogs, [] { return false; }, SystemProcessorCount());
  PhotoSurfaces& surfaces = window.form.buffer.surfaces;
  Display(surfaces.picOriginal, photo);
  Display(surfaces.picSource, photo);
  if (!AdjustPhoto(window.form, /*preview=*/true).ok()) return {256, 256};
  const Picture preview = surfaces.picSource.image;
  if (!AdjustPhoto(window.form, /*preview=*/false).ok()) return {256, 256};
  return Compare(preview->view(), ThumbnailOf(surfaces.picSource.image->view())->view());
}

int Main(const std::vector<int>& sizes) {
  ConsoleSystem system;
  ConsoleDialogs dialogs(std::cerr, /*save_thumbnail=*/false);
  std::vector<Picture> photos;
  std::printf("%-28s", "Module");
  for (const int megapixels : sizes) {
    photos.push_back(GeneratedPicture::OfMegapixels(megapixels));
    std::printf("   %3d MP: mean  99 %%", megapixels);
  }
  std::printf("\n");
  for (const Case& with : Cases()) {
    std::printf("%-28s", with.name);
    for (const Picture& photo : photos) {
      const Agreement agreement = Run(with, photo, system, dialogs);
      std::printf("         %6.2f %5d", agreement.mean, agreement.percentile);
      std::fflush(stdout);
    }
    std::printf("\n");
  }
  return 0;
}

}  // namespace
}  // namespace tarnwell

int main(int count, char** words) {
  std::vector<int> sizes;
  for (int i = 1; i < count; ++i) sizes.push_back(std::atoi(words[i]));
  if (sizes.empty()) sizes = {1, 12, 48};
  for (const int megapixels : sizes) {
    if (megapixels >= 1 && megapixels <= 200) continue;
    std::fprintf(stderr, "Sizes are 1 to 200 megapixels.\n");
    return 2;
  }
  return tarnwell::Main(sizes);
}
