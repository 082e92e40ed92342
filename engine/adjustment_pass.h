#pragma once

#include "engine/pixel_adjustments.h"

namespace tarnwell {

struct Form1;

enum class PassEnd { kDone, kStopped, kOutOfMemory };

// Adjusts the working pixels: noise filter, focus, tones, clamp, on as many threads as the form
// allows, with progress in steps of at least `minimum_step` percent. Unless it is done, the working
// pixels are left unfinished.
PassEnd RunAdjustmentPass(Form1& form, const AdjustmentSettings& settings, float minimum_step);

}  // namespace tarnwell
