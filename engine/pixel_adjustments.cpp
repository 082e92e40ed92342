#include "engine/pixel_adjustments.h"

#include <algorithm>

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

void AdjustColumn(MutablePixelView working, int x, const AdjustmentSettings& settings,
                  const NoiseFilter* noise) {
  for (int y = 0; y < working.height; ++y) {
    std::uint8_t* bytes = working.at(x, y);
    const int starting_sum = bytes[kBlue] + bytes[kGreen] + bytes[kRed];
    PixelValues pixel = {bytes[kBlue], bytes[kGreen], bytes[kRed]};
    if (noise) {
      const NoiseFilter::Pixel smooth = noise->At(x, y);
      pixel = {smooth.blue, smooth.green, smooth.red};
    }
    if (settings.focus) {
      Focus(pixel, FocusMeans(working, x, y, *settings.focus), settings.focus->amount);
    }
    AdjustTones(pixel, starting_sum, settings);
    bytes[kBlue] = ClampToByte(pixel.blue);
    bytes[kGreen] = ClampToByte(pixel.green);
    bytes[kRed] = ClampToByte(pixel.red);
  }
}

}  // namespace tarnwell
