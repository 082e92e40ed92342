#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>

#include "bench/jpeg_floor.h"

namespace tarnwell {

// Runs `pass` in the benchmark's loop and reports its processor time also as a multiple of what
// decoding and encoding alone take for a photo of that size ("floors"), and per megapixel.
template <typename Pass>
void MeasureInFloors(benchmark::State& state, int megapixels, Pass pass) {
  const double before = ProcessorSeconds();
  for (auto _ : state) pass();
  const double seconds = (ProcessorSeconds() - before) /
                         static_cast<double>(std::max<std::int64_t>(state.iterations(), 1));
  state.counters["floors"] = seconds / FloorSeconds(megapixels);
  state.counters["ms/MP"] = seconds * 1e3 / megapixels;
}

// A benchmark for 1, 12 and 48 megapixels.
#define TARNWELL_PHOTO_BENCHMARK(name) \
  BENCHMARK(name)->ArgName("MP")->Arg(1)->Arg(12)->Arg(48)->Unit(benchmark::kMillisecond)

}  // namespace tarnwell
