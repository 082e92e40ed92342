// What turning the hue of a photo costs.

#include <benchmark/benchmark.h>

#include "bench/generated_picture.h"
#include "engine/color_rotation.h"
#include "engine/pass.h"

namespace tarnwell {
namespace {

// Arguments: megapixels, threads.
void RotateHue(benchmark::State& state) {
  const auto picture = GeneratedPicture::OfMegapixels(static_cast<int>(state.range(0)));
  const MutablePixelView pixels = picture->mutable_view();
  for (auto _ : state) {
    ForEachPart(
        pixels.height, kLinesAtOnce, static_cast<int>(state.range(1)),
        [&](int y) { RotateHueOfRow(pixels, y, 77); }, [](int) { return true; });
  }
  state.SetItemsProcessed(state.iterations() * pixels.pixel_count());
}
BENCHMARK(RotateHue)
    ->ArgsProduct({{1, 12, 48}, {1, 2}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

}  // namespace
}  // namespace tarnwell
