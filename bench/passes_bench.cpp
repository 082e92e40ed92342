// The passes over a photo's pixels, each on one thread where nothing else is said, in multiples of
// decoding and encoding alone.

#include <benchmark/benchmark.h>
#include <memory>
#include <optional>

#include "bench/floors.h"
#include "bench/generated_picture.h"
#include "deadpixels/repair_dead_pixels.h"
#include "engine/analysis.h"
#include "engine/color_rotation.h"
#include "engine/final_rotation.h"
#include "engine/focus_pass.h"
#include "engine/histogram.h"
#include "engine/noise_filter.h"
#include "engine/pass.h"
#include "engine/pixel_adjustments.h"
#include "engine/tone_vectors.h"
#include "imaging/thumbnail.h"

namespace tarnwell {
namespace {

Picture Photo(const benchmark::State& state) {
  return GeneratedPicture::OfMegapixels(static_cast<int>(state.range(0)));
}

std::shared_ptr<PixelArray> Copy(const Picture& photo) { return TryCopyPixels(photo->view()); }

int Megapixels(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

// What the automatic correction of an ordinary photo comes to.
AdjustmentSettings OrdinarySettings() {
  AdjustmentSettings settings;
  settings.black_level = 8;
  settings.gain = 1.21;
  settings.saturation_multiplier = 1.13;
  return settings;
}

void Floor(benchmark::State& state) {
  const std::string& file = GeneratedPhoto(Megapixels(state));
  MeasureInFloors(state, Megapixels(state), [&] { FloorOf(file); });
}
TARNWELL_PHOTO_BENCHMARK(Floor);

void Histogram(benchmark::State& state) {
  const Picture photo = Photo(state);
  MeasureInFloors(state, Megapixels(state),
                  [&] { benchmark::DoNotOptimize(CountBrightness(photo->view())); });
}
TARNWELL_PHOTO_BENCHMARK(Histogram);

void Thumbnail(benchmark::State& state) {
  const Picture photo = Photo(state);
  MeasureInFloors(state, Megapixels(state),
                  [&] { benchmark::DoNotOptimize(ThumbnailOf(photo->view())); });
}
TARNWELL_PHOTO_BENCHMARK(Thumbnail);

void Analysis(benchmark::State& state) {
  const Picture photo = Photo(state);
  const BrightnessHistogram histogram = CountBrightness(photo->view());
  MeasureInFloors(state, Megapixels(state), [&] {
    AnalysisPass analysis(photo->view(), histogram, {760, 3}, 250);
    for (int part = 0; part < analysis.part_count(); ++part) analysis.Measure(part);
    benchmark::DoNotOptimize(analysis.found());
  });
}
TARNWELL_PHOTO_BENCHMARK(Analysis);

void TonesByTable(benchmark::State& state) {
  const Picture photo = Photo(state);
  const auto working = Copy(photo);
  const AdjustmentSettings settings = OrdinarySettings();
  MeasureInFloors(state, Megapixels(state), [&] {
    const ToneTable table(settings);
    AdjustPiece(photo->view(), photo->view(), {0, 0, photo->width(), photo->height()}, settings,
                &table, working->mutable_view());
  });
}
TARNWELL_PHOTO_BENCHMARK(TonesByTable);

void Tones(benchmark::State& state) {
  const Picture photo = Photo(state);
  const auto working = Copy(photo);
  const AdjustmentSettings settings = OrdinarySettings();
  if (!SuitToneVectors(settings)) return state.SkipWithError("the processor lacks them");
  MeasureInFloors(state, Megapixels(state), [&] {
    AdjustPieceInVectors(photo->view(), photo->view(), {0, 0, photo->width(), photo->height()},
                         settings, working->mutable_view());
  });
}
TARNWELL_PHOTO_BENCHMARK(Tones);

void Noise(benchmark::State& state, int radius, int threads = 1) {
  const Picture photo = Photo(state);
  const auto working = Copy(photo);
  MeasureInFloors(state, Megapixels(state), [&] {
    const NoiseFilter filter(photo->view(), {radius, 7.65, false});
    ForEachPart(
        filter.piece_count(), 1, threads,
        [&](int piece) { filter.Smooth(filter.piece(piece), working->mutable_view()); },
        [](int) { return true; });
  });
}
void NoiseRadius4(benchmark::State& state) { Noise(state, 4); }
// Its wall time is what counts.
void NoiseRadius4TwoThreads(benchmark::State& state) { Noise(state, 4, 2); }
TARNWELL_PHOTO_BENCHMARK(NoiseRadius4TwoThreads)->UseRealTime();
void NoiseDefault(benchmark::State& state) { Noise(state, Photo(state)->width() * 4 / 320); }
TARNWELL_PHOTO_BENCHMARK(NoiseRadius4);
TARNWELL_PHOTO_BENCHMARK(NoiseDefault);

void FocusDefault(benchmark::State& state) {
  const Picture photo = Photo(state);
  AdjustmentSettings settings = OrdinarySettings();
  settings.focus = FocusSettings{19 / 50.0, 3, 1};
  const ToneTable table(settings);
  MeasureInFloors(state, Megapixels(state), [&] {
    const auto working = TryMakePixels(photo->width(), photo->height());
    FocusPass focus(photo->view(), photo->view(), working->mutable_view(), settings, &table);
    for (int strip = 0; strip < focus.strip_count(); ++strip) focus.Read(strip);
    for (int part = 0; part < focus.part_count(); ++part) focus.Adjust(part);
    for (int band = 0; band < focus.band_count(); ++band) focus.Write(band);
  });
}
TARNWELL_PHOTO_BENCHMARK(FocusDefault);

void HueRotation(benchmark::State& state) {
  const auto working = Copy(Photo(state));
  MeasureInFloors(state, Megapixels(state), [&] {
    for (int y = 0; y < working->height(); ++y) RotateHueOfRow(working->mutable_view(), y, 77);
  });
}
TARNWELL_PHOTO_BENCHMARK(HueRotation);

// Into new memory, like a correction.
void FinalRotation(benchmark::State& state, Turn turn) {
  const Picture photo = Photo(state);
  const PictureSize size = SizeAfter(turn, {photo->width(), photo->height()});
  MeasureInFloors(state, Megapixels(state), [&] {
    PixelArray turned(size.width, size.height);
    TurnPixels(photo->view(), turn, 1, turned.mutable_view());
  });
}
void TurnClockwise(benchmark::State& state) { FinalRotation(state, Turn::kClockwise); }
void TurnHalf(benchmark::State& state) { FinalRotation(state, Turn::kHalf); }
TARNWELL_PHOTO_BENCHMARK(TurnClockwise);
TARNWELL_PHOTO_BENCHMARK(TurnHalf);

// A map with 1,000 stuck pixels.
void DeadPixels(benchmark::State& state) {
  const Picture photo = Photo(state);
  const auto working = Copy(photo);
  PixelArray map(photo->width(), photo->height());
  for (std::uint64_t i = 0; i < 1000; ++i) {
    const std::uint64_t at = i * 7919 * 104729 % map.view().pixel_count();
    map.mutable_view().data[at * kBytesPerPixel + kRed] = 255;
  }
  MeasureInFloors(state, Megapixels(state),
                  [&] { RepairDeadPixels(working->mutable_view(), map.view(), 50); });
}
TARNWELL_PHOTO_BENCHMARK(DeadPixels);

}  // namespace
}  // namespace tarnwell
