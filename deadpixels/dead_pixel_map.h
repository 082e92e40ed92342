#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "deadpixels/deviations.h"
#include "deadpixels/test_shot.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// The map value that separates stuck pixels from sound ones; the default of the module's slider.
inline constexpr int kStuckThreshold = 50;

// How far a pixel must deviate in every one of `shots` shots to count as stuck, in multiples of the
// noise. Noise seldom repeats itself: the more shots agree, the less it takes.
//   1 shot 9, 2 shots 6.5, 5 shots 5, many shots 4
double StuckLimit(int shots);

// The map value of a pixel that deviates by `deviation` in every one of `shots` shots:
// proportional, kStuckThreshold at the limit, at most 255. Never kStuckThreshold itself, at which
// the repair would take a pixel for neither stuck nor sound. So the slider counts in fiftieths of
// the limit.
int MapValue(double deviation, int shots);

// What the shots of one camera and resolution tell about every pixel, collected one shot after the
// other. Takes 4 bytes per pixel for the dark shots and 4 for the light ones.
class DeadPixelEvidence {
 public:
  // Of shots of this size, both sides 1 to kMaxSide.
  DeadPixelEvidence(int width, int height) : width_(width), height_(height) {}

  // Adds a dark or light shot of this size. False when `go_on` said no: the evidence is of no use
  // then. Throws std::bad_alloc when memory does not suffice.
  bool Add(const PixelView& shot, ShotKind kind, const GoOn& go_on);

  int dark_shots() const { return dark_.shots; }
  int light_shots() const { return light_.shots; }

  // The map: grey, each pixel with the value that its stronger evidence gives. A stuck pixel shows
  // in all dark shots or in all light ones, each time to the same side. Throws std::bad_alloc when
  // memory does not suffice.
  PixelArray Map() const;

 private:
  // The least deviation of each pixel in the shots so far, in 64ths; rows top-down.
  struct Weakest {
    int shots = 0;
    std::vector<std::uint16_t> up;
    std::vector<std::uint16_t> down;
  };

  static int ValueOf(const Weakest& weakest, std::size_t pixel);

  int width_;
  int height_;
  Weakest dark_;
  Weakest light_;
};

// How many pixels of a map stand above the default threshold.
std::size_t CountStuck(const PixelView& map);

}  // namespace tarnwell
