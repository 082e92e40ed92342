#pragma once

#include "engine/pixel_adjustments.h"
#include "engine/processor.h"

namespace tarnwell {

// AdjustPiece in the arithmetic of the rule itself, several pixels at a time: faster than a table,
// which does not fit into the nearest cache.

// Whether the processor can, and `settings` are those of an ordinary run: no hue, no white balance,
// and no channel that leaves 16 bits on its way.
bool SuitToneVectors(const AdjustmentSettings& settings,
                     Instructions instructions = BestInstructions());

// What AdjustPiece does, for settings that suit.
void AdjustPieceInVectors(const PixelView& values, const PixelView& start,
                          const PicturePiece& piece, const AdjustmentSettings& settings,
                          MutablePixelView out);

}  // namespace tarnwell
