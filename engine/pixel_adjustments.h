#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "engine/focus_filter.h"
#include "engine/noise_settings.h"
#include "imaging/picture_piece.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// Everything that decides what happens to a pixel in the adjustment pass.
struct AdjustmentSettings {
  std::optional<NoiseSettings> noise;
  std::optional<FocusSettings> focus;
  std::int16_t black_level = 0;
  double gain = 1;
  std::optional<std::array<float, 3>> hue_factors;             // red, green, blue
  std::optional<std::array<double, 3>> white_balance_offsets;  // red, green, blue
  double saturation_multiplier = 1;
  double contrast_factor = 0;  // negative pushes away from 128
};

// The channels of a pixel between two steps; may leave 0..255 until the last.
struct PixelValues {
  std::int16_t blue = 0;
  std::int16_t green = 0;
  std::int16_t red = 0;
};

// The steps after the filters, in order: black level, gain, hue factors, white balance, saturation,
// contrast. `starting_sum` is red + green + blue before any step, 0 to 765. Every product is
// rounded half to even; one that does not fit 16 bits leaves its channel as it was.
void AdjustTones(PixelValues& pixel, int starting_sum, const AdjustmentSettings& settings);

// How far from 0 a channel that starts within `farthest` of it can be between two of those steps at
// most, if each of them is done. Below 32767 each is.
double FarthestTone(const AdjustmentSettings& settings, double farthest);

// Clamps the channels to 0..255 and writes them; the unused byte stays.
void StoreClamped(const PixelValues& pixel, std::uint8_t* bytes);

// All that the steps after the filters make of a pixel without focus, whose channels start them in
// 0..255: each channel's result follows from its value and the starting sum alone, so a table holds
// what AdjustTones gives for any of them, clamped. One table for all three channels, unless hue or
// white balance treat them differently: what is looked up ought to stay in the nearest cache.
class ToneTable {
 public:
  explicit ToneTable(const AdjustmentSettings& settings);

  // Adjusts `count` pixels of a row, `values`, into `out`; `start` are the same pixels before any
  // step. All three may be the same. The unused byte is that of `values`.
  void Adjust(const std::uint8_t* values, const std::uint8_t* start, int count,
              std::uint8_t* out) const;

  // One pixel whose channels have these values, 0 to 255; the unused byte stays.
  void AdjustPixel(int blue, int green, int red, int starting_sum, std::uint8_t* pixel) const {
    const std::uint8_t* row = &results_[static_cast<std::size_t>(starting_sum) * kValues];
    pixel[kBlue] = row[from_[kBlue] + blue];
    pixel[kGreen] = row[from_[kGreen] + green];
    pixel[kRed] = row[from_[kRed] + red];
  }

  // From about this many pixels on a table is worth making.
  static constexpr std::size_t kWorthwhile = 100000;

 private:
  static constexpr std::size_t kValues = 256;
  static constexpr std::size_t kTableBytes = 766 * kValues;

  std::vector<std::uint8_t> results_;            // by starting sum and value
  std::array<std::size_t, 3> from_ = {0, 0, 0};  // where the channel's table begins
};

// Adjusts the pixels of `piece` of `values` into `out`, focus apart: tones, clamp. `start` is the
// picture before any step; all three may be the same picture; `table` may be null. Pixels are
// independent of each other.
void AdjustPiece(const PixelView& values, const PixelView& start, const PicturePiece& piece,
                 const AdjustmentSettings& settings, const ToneTable* table, MutablePixelView out);

// Adjusts column `x` of `working`, row 0 first: focus, tones, clamp. Columns must come in order, 0
// first: the sharpening compares with neighbours that are fully corrected already to the left and
// above, and as the photo has them elsewhere. `smooth` is what the noise filter made of the
// picture, or `working` itself.
void FocusColumn(MutablePixelView working, const PixelView& smooth, int x,
                 const AdjustmentSettings& settings);

}  // namespace tarnwell
