#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/pixel_adjustments.h"
#include "engine/processor.h"

namespace tarnwell {

// Where a column of a FocusPass stands: what its next pixel needs. All of it goes on by a row with
// every step.
struct FocusPlace {
  std::uint8_t* pixel;
  const std::uint8_t* smooth;    // what sharpening starts from
  const std::uint8_t* entering;  // the pixels by which the sum of the row that enters the window
  const std::uint8_t* leaving;   // differs from that of the column before
  std::int32_t* row_sum;         // four numbers a row, a multiple of 16 bytes
  double divisor;                // neighbours in the window
  std::int32_t sum[4];           // over the window at the row before
};

// Columns that are worked on together, for the processor's sake: the pixels of one column wait for
// each other.
inline constexpr int kFocusColumns = 4;

// Whether the processor can, and no step takes a channel out of 16 bits.
bool SuitFocusVectors(const AdjustmentSettings& settings, Instructions instructions);

// Sharpens and adjusts `rows` pixels of each of kFocusColumns columns, a row of all of them after
// the other. Their windows are inside the picture all the way; `sum` comes along. For settings that
// suit.
void AdjustInFocusVectors(const AdjustmentSettings& settings, FocusPlace* places, int rows);

}  // namespace tarnwell
