#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "imaging/pixel_array.h"

namespace tarnwell {

// The floor that the costs of a correction are told in: decoding and encoding with nothing between,
// by the JPEG library in its plainest use, on one thread, into fresh memory. No program that
// corrects JPEG files can do without.

struct DecodedPixels {
  int width = 0;
  int height = 0;
  std::unique_ptr<std::uint8_t[]> bytes;  // 4 a pixel

  PixelView view() const { return {bytes.get(), width, height}; }
};
DecodedPixels DecodedByLibjpeg(const std::string& file);

// `pixels` as a JPEG file, chrominance at half the resolution.
std::string EncodedByLibjpeg(const PixelView& pixels, int quality);

// Decodes and encodes once; gives the new file.
std::string FloorOf(const std::string& file);

// A generated picture of this size as a JPEG file of the quality that phones store.
const std::string& GeneratedPhoto(int megapixels);

// Processor seconds that FloorOf takes for GeneratedPhoto(megapixels): the least of a few runs,
// measured once.
double FloorSeconds(int megapixels);

// Processor seconds that this process has used so far.
double ProcessorSeconds();

}  // namespace tarnwell
