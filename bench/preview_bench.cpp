// What somebody waits for at the window: the first preview of a photo that is opened, and the new
// one after a slider has moved. One thread.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "bench/jpeg_floor.h"
#include "console/console_dialogs.h"
#include "console/console_window.h"
#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "modules/module_table.h"
#include "platform/files.h"

namespace tarnwell {
namespace {

int Megapixels(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

// A window without a view, and a photo file for it.
struct Desk {
  explicit Desk(const benchmark::State& state) {
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "photo.jpg", std::ios::binary) << GeneratedPhoto(Megapixels(state));
    window.app.open_mode = 2;
    window.app.opened_path = system.files->Absolute((folder / "photo.jpg").string());
  }
  ~Desk() { std::filesystem::remove_all(folder); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  std::filesystem::path folder = std::filesystem::temp_directory_path() / "tarnwell-preview-bench";
  ConsoleSystem system;
  ConsoleDialogs dialogs{std::cerr, false};
  ConsoleWindow window{StartingPoint(), system, dialogs, [] { return false; }, 1};
};

// Also in multiples of decoding the photo alone, which is measured in turns with it.
void OpeningToFirstPreview(benchmark::State& state) {
  using Clock = std::chrono::steady_clock;
  using Seconds = std::chrono::duration<double>;
  Desk desk(state);
  desk.window.app.auto_preview = true;
  Seconds decoding(1e9), opening(1e9);
  for (auto _ : state) {
    desk.window.app.photo_changed = false;
    const auto begin = Clock::now();
    benchmark::DoNotOptimize(DecodedByLibjpeg(GeneratedPhoto(Megapixels(state))));
    const auto decoded = Clock::now();
    if (!FileOpen(desk.window.form, false).ok()) state.SkipWithError("the photo was not opened");
    const auto opened = Clock::now();
    decoding = std::min(decoding, Seconds(decoded - begin));
    opening = std::min(opening, Seconds(opened - decoded));
    state.SetIterationTime(Seconds(opened - decoded).count());
  }
  state.counters["decodings"] = opening / decoding;
}
BENCHMARK(OpeningToFirstPreview)
    ->ArgName("MP")
    ->Arg(1)
    ->Arg(12)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void NextPreview(benchmark::State& state, bool with_filters) {
  Desk desk(state);
  if (!FileOpen(desk.window.form, false).ok()) state.SkipWithError("the photo was not opened");
  desk.window.modules.open[kNoiseReduction] = with_filters ? 1 : 0;
  desk.window.modules.open[kAdjustFocus] = with_filters ? 1 : 0;
  for (auto _ : state) {
    if (!AdjustPhoto(desk.window.form, /*preview=*/true).ok()) state.SkipWithError("no preview");
  }
}
void NextPreviewDefault(benchmark::State& state) { NextPreview(state, false); }
void NextPreviewNoiseAndFocus(benchmark::State& state) { NextPreview(state, true); }
BENCHMARK(NextPreviewDefault)->ArgName("MP")->Arg(1)->Arg(12)->Unit(benchmark::kMillisecond);
BENCHMARK(NextPreviewNoiseAndFocus)->ArgName("MP")->Arg(1)->Arg(12)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwell
