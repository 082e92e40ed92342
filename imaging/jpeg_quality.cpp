#include "imaging/jpeg_quality.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "imaging/big_endian.h"
#include "imaging/jpeg_tables.h"

namespace tarnwell {
namespace {

constexpr int kSteps = 64;
using StepTable = std::array<int, kSteps>;

struct StepTables {
  std::optional<StepTable> luminance;
  std::optional<StepTable> chrominance;
};

// A segment holds tables one after another: a byte with the size of the steps (high half, 0 for one
// byte each) and the table's number, then the steps in the order of a scan. Number 0 is luminance,
// as every encoder has it.
void ReadTables(std::string_view content, StepTables& tables) {
  while (!content.empty()) {
    const int bytes_each = (ByteAt(content, 0) >> 4) == 0 ? 1 : 2;
    const int number = ByteAt(content, 0) & 15;
    const auto size = static_cast<std::size_t>(1 + kSteps * bytes_each);
    if (content.size() < size) return;
    StepTable steps;
    for (int i = 0; i < kSteps; ++i) {
      const std::size_t at = 1 + static_cast<std::size_t>(i) * bytes_each;
      steps[kZigzag[i]] = bytes_each == 1 ? ByteAt(content, at) : WordAt(content, at);
    }
    if (number == 0) tables.luminance = steps;
    if (number == 1) tables.chrominance = steps;
    content.remove_prefix(size);
  }
}

// How far the table is from the recommended one at this quality.
int Distance(const StepTable& steps, const std::uint8_t (&base)[kSteps], int quality) {
  int distance = 0;
  for (int i = 0; i < kSteps; ++i) {
    distance += std::abs(steps[i] - QuantisationStep(base[i], quality));
  }
  return distance;
}

}  // namespace

std::optional<int> EstimateJpegQuality(const std::vector<JpegSegment>& segments) {
  StepTables tables;
  for (const JpegSegment& segment : segments) {
    if (segment.marker == kQuantisationMarker) ReadTables(segment.content, tables);
  }
  if (!tables.luminance) return std::nullopt;
  int nearest = 0;
  int least = std::numeric_limits<int>::max();
  // From the best down: where qualities divide alike, the higher one is meant.
  for (int quality = 100; quality >= 1; --quality) {
    int distance = Distance(*tables.luminance, kLuminanceSteps, quality);
    if (tables.chrominance) distance += Distance(*tables.chrominance, kChrominanceSteps, quality);
    if (distance >= least) continue;
    least = distance;
    nearest = quality;
  }
  return nearest;
}

}  // namespace tarnwell
