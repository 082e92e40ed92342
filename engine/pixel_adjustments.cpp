#include "engine/pixel_adjustments.h"

#include <algorithm>
#include <bit>
#include <cmath>
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

std::uint8_t ClampToByte(std::int16_t value) {
  return static_cast<std::uint8_t>(std::clamp<std::int16_t>(value, 0, 255));
}

// The position of a channel among factors that come in the order red, green, blue.
constexpr int FactorOf(Channel channel) { return kRed - channel; }

// The steps that look at the channel alone: black level, gain, hue factor, white balance.
std::int16_t StartTone(std::int16_t value, Channel channel, const AdjustmentSettings& settings) {
  value = static_cast<std::int16_t>(std::max(value - settings.black_level, 0));
  RoundInto(value, value * settings.gain);
  if (settings.hue_factors) {
    const double factor = (*settings.hue_factors)[FactorOf(channel)];
    RoundInto(value, value + value * factor);
  }
  if (settings.white_balance_offsets) {
    RoundInto(value, value + value * (*settings.white_balance_offsets)[FactorOf(channel)]);
  }
  return value;
}

// RoundInto among whole numbers in double, in a form of which compilers make vectors.
inline double Rounded(double value, double otherwise) {
  const double rounded = RoundHalfToEven(value);
  const bool fits = (rounded >= -32768.0) & (rounded <= 32767.0);
  return fits ? rounded : otherwise;
}

// The steps that follow: saturation, contrast.
inline double FinishTone(double value, double average, const AdjustmentSettings& settings) {
  value = Rounded((value - average) * settings.saturation_multiplier + average, value);
  if (settings.contrast_factor == 0) return value;
  return Rounded(value + (128 - value) * settings.contrast_factor, value);
}

}  // namespace

void AdjustTones(PixelValues& pixel, int starting_sum, const AdjustmentSettings& settings) {
  const double average = starting_sum / 3.0;
  const auto adjust = [&](std::int16_t& value, Channel channel) {
    const double start = StartTone(value, channel, settings);
    value = static_cast<std::int16_t>(FinishTone(start, average, settings));
  };
  adjust(pixel.blue, kBlue);
  adjust(pixel.green, kGreen);
  adjust(pixel.red, kRed);
}

double FarthestTone(const AdjustmentSettings& settings, double farthest) {
  double most = farthest;
  // Every step may round up.
  const auto reaches = [&](double distance) { most = std::max(most, farthest = distance + 1); };
  const auto adds_share = [&](const auto& factors) {
    double largest = 0;
    for (const double factor : factors) largest = std::max(largest, std::abs(factor));
    reaches(farthest + farthest * largest);
  };
  reaches(std::max(farthest - settings.black_level, 0.0));
  reaches(farthest * std::abs(settings.gain));
  if (settings.hue_factors) adds_share(*settings.hue_factors);
  if (settings.white_balance_offsets) adds_share(*settings.white_balance_offsets);
  reaches((farthest + 255) * std::abs(settings.saturation_multiplier) + 255);
  reaches(farthest + (farthest + 128) * std::abs(settings.contrast_factor));
  return most;
}

void StoreClamped(const PixelValues& pixel, std::uint8_t* bytes) {
  bytes[kBlue] = ClampToByte(pixel.blue);
  bytes[kGreen] = ClampToByte(pixel.green);
  bytes[kRed] = ClampToByte(pixel.red);
}

ToneTable::ToneTable(const AdjustmentSettings& settings) {
  const bool channels_differ = settings.hue_factors || settings.white_balance_offsets;
  results_.resize(channels_differ ? 3 * kTableBytes : kTableBytes);
  for (const Channel channel : {kBlue, kGreen, kRed}) {
    if (!channels_differ && channel != kBlue) break;
    if (channels_differ) from_[channel] = channel * kTableBytes;
    double starts[kValues];
    for (std::size_t value = 0; value < kValues; ++value) {
      starts[value] = StartTone(static_cast<std::int16_t>(value), channel, settings);
    }
    std::uint8_t* result = &results_[from_[channel]];
    for (int sum = 0; sum <= 765; ++sum, result += kValues) {
      const double average = sum / 3.0;
      for (std::size_t value = 0; value < kValues; ++value) {
        const double tone = FinishTone(starts[value], average, settings);
        result[value] = static_cast<std::uint8_t>(static_cast<int>(std::clamp(tone, 0.0, 255.0)));
      }
    }
  }
}

void ToneTable::Adjust(const std::uint8_t* values, const std::uint8_t* start, int count,
                       std::uint8_t* out) const {
  // A pixel is loaded whole: single bytes would keep the processor's load ports busy.
  static_assert(std::endian::native == std::endian::little);
  const auto channel = [](std::uint32_t pixel, Channel c) { return pixel >> 8 * c & 255; };
  const std::uint8_t* blue = &results_[from_[kBlue]];
  const std::uint8_t* green = &results_[from_[kGreen]];
  const std::uint8_t* red = &results_[from_[kRed]];
  const std::size_t bytes = static_cast<std::size_t>(count) * kBytesPerPixel;
  for (std::size_t i = 0; i < bytes; i += kBytesPerPixel) {
    std::uint32_t before, pixel;
    std::memcpy(&before, start + i, kBytesPerPixel);
    std::memcpy(&pixel, values + i, kBytesPerPixel);
    const std::size_t row =
        (channel(before, kBlue) + channel(before, kGreen) + channel(before, kRed)) * kValues;
    const std::uint32_t adjusted = blue[row + channel(pixel, kBlue)] |
                                   green[row + channel(pixel, kGreen)] << 8 |
                                   red[row + channel(pixel, kRed)] << 16 | (pixel & 0xFF000000);
    std::memcpy(out + i, &adjusted, kBytesPerPixel);
  }
}

void AdjustPiece(const PixelView& values, const PixelView& start, const PicturePiece& piece,
                 const AdjustmentSettings& settings, const ToneTable* table, MutablePixelView out) {
  for (int y = piece.top; y < piece.bottom; ++y) {
    if (table) {
      table->Adjust(values.at(piece.left, y), start.at(piece.left, y), piece.right - piece.left,
                    out.at(piece.left, y));
      continue;
    }
    for (int x = piece.left; x < piece.right; ++x) {
      const std::uint8_t* bytes = values.at(x, y);
      PixelValues pixel = {bytes[kBlue], bytes[kGreen], bytes[kRed]};
      AdjustTones(pixel, SumOfChannels(start.at(x, y)), settings);
      out.at(x, y)[kUnused] = bytes[kUnused];
      StoreClamped(pixel, out.at(x, y));
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
