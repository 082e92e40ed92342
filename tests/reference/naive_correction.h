#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "imaging/pixel_array.h"
#include "tests/support/pictures.h"

// A second correction, written straight from its rules: one function per rule, plain loops, no
// threads, no tables, and nothing shared with the engine but the layout of a picture. It is slow
// and serves as the judge: what the program makes of a picture must be the same, byte by byte.
namespace tarnwell::naive {

using Colour = TestPixel;

// One run: the photo and everything that is set.
struct Input {
  PixelArray photo;
  bool preview = false;
  std::array<bool, 14> open = {};                  // by module
  std::array<std::optional<int>, 13> values = {};  // by slider; nothing for a text without a number
  std::array<bool, 5> checks = {};
  std::optional<Colour> white = {};  // the white reference; nothing when its file is missing
  std::array<float, 3> hue = {};     // factors of red, green, blue
  int rotation = 0;
  bool analyze_full = false;
  bool extended_noise = false;
  std::vector<std::string> learning = {};  // lines of the learning file
};

using Record = std::array<double, 21>;

struct Output {
  PixelArray picture;
  std::optional<Record> record;  // nothing when smart photo correction is closed
};

Output Correct(const Input& input);

// The repaired photo: `map` is the picture of stuck pixels, of the photo's size.
PixelArray RepairDeadPixels(PixelArray photo, const PixelArray& map, int threshold);

struct NoiseRule {
  int radius = 1;
  double threshold = 0;
  bool darkness_weighting = false;
};

// What the noise filter makes of colour `c` at (x, y), with the neighbours in `reference`.
Colour FilterNoise(const PixelArray& reference, int x, int y, const NoiseRule& rule, Colour c);

Colour TurnHue(const Colour& c, int degrees);

PixelArray Thumbnail(const PixelArray& photo);

// The fields of a record as the learning file holds them.
std::vector<std::string> FieldTexts(const Record& record);

}  // namespace tarnwell::naive
