#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "modules/frm_modules.h"
#include "tests/reference/naive_correction.h"
#include "tests/support/test_window.h"

namespace tarnwell {

// One correction run as both sides are to make it: the program and the naive form. What is set is
// in `input`; the rest is how the program comes by it.
struct ComparedRun {
  std::string name;
  naive::Input input;
  WhiteBalanceMode white_mode = WhiteBalanceMode::kPickedPixel;
};

// What a run leaves behind: picture and learning record, the record as its fields.
struct RunResult {
  PixelArray picture;
  std::vector<std::string> record;
};

RunResult RunNaively(const ComparedRun& run);

// Makes the run with the program, in `window`, which may have seen other runs before.
RunResult RunProgram(TestWindow& window, const ComparedRun& run, int threads);

// Where the two differ first, in words; empty when they are the same.
std::string Difference(const RunResult& expected, const RunResult& actual);

// A run chosen at random, the same for the same seed everywhere. Photos have sides up to 60 pixels,
// or of 330 to 700 when `large`, so that the thumbnail is really smaller.
ComparedRun RandomRun(std::uint32_t seed, bool large);

}  // namespace tarnwell
