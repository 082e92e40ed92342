#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
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

// Clamps the channels to 0..255 and writes them; the unused byte stays.
void StoreClamped(const PixelValues& pixel, std::uint8_t* bytes);

// All that the steps after the filters make of a pixel without focus, whose channels start them in
// 0..255: each channel's result follows from its value and the starting sum alone, so one table
// holds what AdjustTones gives for any of them, clamped.
class ToneTable {
 public:
  explicit ToneTable(const AdjustmentSettings& settings);

  // Adjusts `count` pixels of a row in place; `start` are the same pixels before any step.
  void Adjust(std::uint8_t* pixels, const std::uint8_t* start, int count) const;

  // One pixel whose channels have these values, 0 to 255; the unused byte stays.
  void AdjustPixel(int blue, int green, int red, int starting_sum, std::uint8_t* pixel) const {
    const std::uint32_t* row = &results_[static_cast<std::size_t>(starting_sum) * 256];
    Merge(row[blue], row[green], row[red], pixel);
  }

  // From about this many pixels on a table is worth making.
  static constexpr std::size_t kWorthwhile = 400000;

 private:
  // Takes each channel from its own result.
  static void Merge(std::uint32_t blue, std::uint32_t green, std::uint32_t red,
                    std::uint8_t* pixel) {
    constexpr auto mask = [](int channel) {
      std::array<std::uint8_t, kBytesPerPixel> bytes = {};
      bytes[channel] = 255;
      return std::bit_cast<std::uint32_t>(bytes);
    };
    std::uint32_t bytes;
    std::memcpy(&bytes, pixel, sizeof(bytes));
    bytes = (bytes & mask(kUnused)) | (blue & mask(kBlue)) | (green & mask(kGreen)) |
            (red & mask(kRed));
    std::memcpy(pixel, &bytes, sizeof(bytes));
  }

  // By starting sum and value: the results in the order of a pixel, the unused channel 0.
  std::vector<std::uint32_t> results_;
};

// Adjusts the pixels of `piece` of `working`, focus apart: tones, clamp. `start` is the picture
// before any step, which may be `working` itself when there was no other step; `table` may be null.
// Pixels are independent of each other.
void AdjustPiece(MutablePixelView working, const PixelView& start, const PicturePiece& piece,
                 const AdjustmentSettings& settings, const ToneTable* table);

// Adjusts column `x` of `working`, row 0 first: focus, tones, clamp. Columns must come in order, 0
// first: the sharpening compares with neighbours that are fully corrected already to the left and
// above, and as the photo has them elsewhere. `smooth` is what the noise filter made of the
// picture, or `working` itself.
void FocusColumn(MutablePixelView working, const PixelView& smooth, int x,
                 const AdjustmentSettings& settings);

}  // namespace tarnwell
