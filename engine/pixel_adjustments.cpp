#include "engine/pixel_adjustments.h"

#include <algorithm>
#include <cstring>

#include "engine/rounding.h"

namespace tarnwell {
namespace {

void Focus(PixelValues& pixel, const NeighbourMeans& means, double amount) {
  const auto sharpen = [amount](std::int16_t& channel, double mean) {
    std::int16_t change;
    if (RoundInto(change, (channel - mean) * amount)) RoundInto(channel, channel + change);
  };
  sharpen(pixel.blue, means.channel[kBlue]);
  sharpen(pixel.green, means.channel[kGreen]);
  sharpen(pixel.red, means.channel[kRed]);
}

void SubtractBlackLevel(std::int16_t& channel, std::int16_t black_level) {
  channel = static_cast<std::int16_t>(std::max(channel - black_level, 0));
}

std::uint8_t ClampToByte(std::int16_t value) {
  return static_cast<std::uint8_t>(std::clamp<std::int16_t>(value, 0, 255));
}

}  // namespace

void AdjustTones(PixelValues& pixel, int starting_sum, const AdjustmentSettings& settings) {
  auto& [blue, green, red] = pixel;

  SubtractBlackLevel(blue, settings.black_level);
  SubtractBlackLevel(green, settings.black_level);
  SubtractBlackLevel(red, settings.black_level);

  RoundInto(blue, blue * settings.gain);
  RoundInto(green, green * settings.gain);
  RoundInto(red, red * settings.gain);

  if (settings.hue_factors) {
    const auto& factors = *settings.hue_factors;
    RoundInto(red, red + red * static_cast<double>(factors[0]));
    RoundInto(green, green + green * static_cast<double>(factors[1]));
    RoundInto(blue, blue + blue * static_cast<double>(factors[2]));
  }

  if (settings.white_balance_offsets) {
    const auto& offsets = *settings.white_balance_offsets;
    RoundInto(red, red + red * offsets[0]);
    RoundInto(green, green + green * offsets[1]);
    RoundInto(blue, blue + blue * offsets[2]);
  }

  const double average = starting_sum / 3.0;
  const double multiplier = settings.saturation_multiplier;
  RoundInto(blue, (blue - average) * multiplier + average);
  RoundInto(green, (green - average) * multiplier + average);
  RoundInto(red, (red - average) * multiplier + average);

  if (settings.contrast_factor != 0) {
    const double factor = settings.contrast_factor;
    RoundInto(blue, blue + (128 - blue) * factor);
    RoundInto(green, green + (128 - green) * factor);
    RoundInto(red, red + (128 - red) * factor);
  }
}

void StoreClamped(const PixelValues& pixel, std::uint8_t* bytes) {
  bytes[kBlue] = ClampToByte(pixel.blue);
  bytes[kGreen] = ClampToByte(pixel.green);
  bytes[kRed] = ClampToByte(pixel.red);
}

ToneTable::ToneTable(const AdjustmentSettings& settings) : results_(766 * 256) {
  std::uint32_t* result = results_.data();
  for (int sum = 0; sum <= 765; ++sum) {
    for (std::int16_t value = 0; value < 256; ++value, ++result) {
      PixelValues pixel = {value, value, value};
      AdjustTones(pixel, sum, settings);
      std::uint8_t bytes[kBytesPerPixel] = {};
      StoreClamped(pixel, bytes);
      std::memcpy(result, bytes, sizeof(bytes));
    }
  }
}

void ToneTable::Adjust(std::uint8_t* pixels, const std::uint8_t* start, int count) const {
  for (int i = 0; i < count; ++i, pixels += kBytesPerPixel, start += kBytesPerPixel) {
    AdjustPixel(pixels[kBlue], pixels[kGreen], pixels[kRed], SumOfChannels(start), pixels);
  }
}

void AdjustPiece(MutablePixelView working, const PixelView& start, const PicturePiece& piece,
                 const AdjustmentSettings& settings, const ToneTable* table) {
  for (int y = piece.top; y < piece.bottom; ++y) {
    if (table) {
      table->Adjust(working.at(piece.left, y), start.at(piece.left, y), piece.right - piece.left);
      continue;
    }
    for (int x = piece.left; x < piece.right; ++x) {
      std::uint8_t* bytes = working.at(x, y);
      PixelValues pixel = {bytes[kBlue], bytes[kGreen], bytes[kRed]};
      AdjustTones(pixel, SumOfChannels(start.at(x, y)), settings);
      StoreClamped(pixel, bytes);
    }
  }
}

void FocusColumn(MutablePixelView working, const PixelView& smooth, int x,
                 const AdjustmentSettings& settings) {
  for (int y = 0; y < working.height; ++y) {
    std::uint8_t* bytes = working.at(x, y);
    const int starting_sum = SumOfChannels(bytes);
    const std::uint8_t* from = smooth.at(x, y);
    PixelValues pixel = {from[kBlue], from[kGreen], from[kRed]};
    Focus(pixel, FocusMeans(working, x, y, *settings.focus), settings.focus->amount);
    AdjustTones(pixel, starting_sum, settings);
    StoreClamped(pixel, bytes);
  }
}

}  // namespace tarnwell
