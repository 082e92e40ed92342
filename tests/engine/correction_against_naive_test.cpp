// The program's corrections against the naive form, byte by byte: every setting alone, then random
// runs. TARNWELL_RANDOM_RUNS makes the random tests longer, TARNWELL_RANDOM_SEED starts them at
// another seed; with one run and the seed of a failure that run is repeated.

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <random>

#include "engine/adjust_photo.h"
#include "tests/reference/compared_run.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

std::uint32_t NumberFromEnvironment(const char* name, std::uint32_t otherwise) {
  const char* text = std::getenv(name);
  return text ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : otherwise;
}

// The run with one thread and with several.
void ExpectSame(TestWindow& window, const ComparedRun& run) {
  const RunResult expected = RunNaively(run);
  for (const int threads : {1, 2, 5}) {
    window.dialogs.shown.clear();
    EXPECT_EQ(Difference(expected, RunProgram(window, run, threads)), "")
        << run.name << ", " << threads << " threads";
  }
}

// --- One setting at a time ----------------------------------------------------------------------

// All modules closed, every slider at its default.
naive::Input Plain(const Picture& photo) {
  naive::Input input;
  input.photo = *photo;
  input.values = {0, 0, 50, 0, 0, 0, 80, 40, 30, 50, 3, 19, 0};
  return input;
}

struct SettingRow {
  std::string name;
  std::function<void(ComparedRun&)> set;
};

void AddSliderRows(std::vector<SettingRow>& rows, int module, int slider,
                   std::initializer_list<int> values) {
  for (const int value : values) {
    rows.push_back({"slider " + std::to_string(slider) + " at " + std::to_string(value),
                    [=](ComparedRun& run) {
                      run.input.open[module] = true;
                      run.input.values[slider] = value;
                    }});
  }
}

void AddLimitRows(std::vector<SettingRow>& rows, int check) {
  for (const int value : {0, 1, 30, 99, 100}) {
    rows.push_back(
        {"limit " + std::to_string(check) + " at " + std::to_string(value), [=](ComparedRun& run) {
           run.input.open[kSmartPhotoCorrection] = true;
           run.input.checks[check] = true;
           run.input.values[check] = value;
         }});
  }
}

void AddWhiteBalanceRows(std::vector<SettingRow>& rows) {
  for (const int mode : {0, 1, 2}) {
    for (const int strength : {0, 50, 100}) {
      for (const naive::Colour white : {naive::Colour{240, 190, 120}, naive::Colour{0, 0, 0}}) {
        rows.push_back({"white balance from source " + std::to_string(mode), [=](ComparedRun& run) {
                          run.input.open[kSmartWhiteBalance] = true;
                          run.white_mode = static_cast<WhiteBalanceMode>(mode);
                          run.input.values[2] = strength;
                          run.input.white = white;
                        }});
      }
    }
  }
  rows.push_back({"white balance that nobody saved", [](ComparedRun& run) {
                    run.input.open[kSmartWhiteBalance] = true;
                    run.white_mode = WhiteBalanceMode::kModeDefault;
                  }});
}

struct NoiseCase {
  bool extended;
  int threshold;
  int radius;
};

void AddNoiseRows(std::vector<SettingRow>& rows) {
  for (const NoiseCase& noise :
       {NoiseCase{false, 0, 0}, NoiseCase{false, 40, 30}, NoiseCase{false, 100, 100},
        NoiseCase{true, 40, 4}, NoiseCase{true, 5, 9}}) {
    for (const bool weighted : {false, true}) {
      rows.push_back({weighted ? "noise by darkness" : "noise", [=](ComparedRun& run) {
                        run.input.open[kNoiseReduction] = true;
                        run.input.checks[kProtectLightAreas] = weighted;
                        run.input.extended_noise = noise.extended;
                        run.input.values[7] = noise.threshold;
                        run.input.values[8] = noise.radius;
                      }});
    }
  }
}

std::vector<SettingRow> SingleSettings() {
  std::vector<SettingRow> rows = {
      {"everything closed", [](ComparedRun&) {}},
      {"smart correction", [](ComparedRun& run) { run.input.open[kSmartPhotoCorrection] = true; }},
      {"hue", [](ComparedRun& run) {
         run.input.open[kAdjustHue] = true;
         run.input.hue = {0.5f, -0.25f, -0.2f};
       }}};
  AddLimitRows(rows, kWhiteLimitByHand);
  AddLimitRows(rows, kBlackLimitByHand);
  AddSliderRows(rows, kAdjustBrightness, 3, {-100, -1, 0, 37, 100});
  AddSliderRows(rows, kAdjustContrast, 4, {-100, -1, 0, 37, 100});
  AddSliderRows(rows, kAdjustSaturation, 5, {-100, -50, 0, 37, 100});
  AddSliderRows(rows, kAdjustFocus, 10, {1, 2, 10});
  AddSliderRows(rows, kAdjustFocus, 11, {-100, 0, 100});
  AddSliderRows(rows, kColorRotation, 12, {-180, -60, -1, 0, 1, 120, 180});
  AddWhiteBalanceRows(rows);
  AddNoiseRows(rows);
  for (int rotation = 0; rotation <= 4; ++rotation) {
    rows.push_back({"rotation", [=](ComparedRun& run) {
                      run.input.open[kRotation] = true;
                      run.input.rotation = rotation;
                    }});
  }
  return rows;
}

// Small photos, and one that is long enough for its thumbnail to be smaller.
std::vector<Picture> SmallPhotos() {
  return {RandomPixels(1, 1, 3), NoisyPicture(23, 17, 5), NoisyPicture(9, 31, 6, 3),
          RandomPixels(701, 5, 7), std::make_shared<PixelArray>(4, 3)};
}

TEST(CorrectionAgainstNaiveTest, EverySettingAlone) {
  TestWindow window;
  for (const Picture& photo : SmallPhotos()) {
    for (const SettingRow& row : SingleSettings()) {
      for (const bool preview : {false, true}) {
        for (const bool analyze_full : {false, true}) {
          ComparedRun run{row.name, Plain(photo)};
          run.input.preview = preview;
          run.input.analyze_full = analyze_full;
          row.set(run);
          if (analyze_full && !run.input.open[kSmartPhotoCorrection]) continue;
          ExpectSame(window, run);
        }
      }
    }
  }
}

// --- Random runs --------------------------------------------------------------------------------

// Seeds are numbered on from the first; every `large_every`th photo is a large one.
void CompareRandomRuns(std::uint32_t runs, std::uint32_t large_every) {
  TestWindow window;
  const std::uint32_t first = NumberFromEnvironment("TARNWELL_RANDOM_SEED", 1);
  for (std::uint32_t seed = first; seed < first + runs; ++seed) {
    ExpectSame(window, RandomRun(seed, seed % large_every == 0));
    if (::testing::Test::HasFailure()) return;
  }
}

TEST(CorrectionAgainstNaiveTest, RandomRuns) {
  CompareRandomRuns(NumberFromEnvironment("TARNWELL_RANDOM_RUNS", 160), 80);
}

// --- Dead pixels --------------------------------------------------------------------------------

// A photo and the map of its camera, in which about one pixel in `one_in` has a strength.
struct StuckPhoto {
  Picture photo;
  std::shared_ptr<PixelArray> map;
};

StuckPhoto RandomStuckPhoto(std::uint32_t seed) {
  std::mt19937 random(seed);
  const int width = 1 + static_cast<int>(random() % (seed % 5 == 0 ? 260 : 30));
  const int height = 1 + static_cast<int>(random() % 30);
  const unsigned one_in = 1 + static_cast<unsigned>(random() % 8);
  auto map = std::make_shared<PixelArray>(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* pixel = map->mutable_view().at(x, y);
      pixel[kGreen] = static_cast<std::uint8_t>(random() % 256);  // says nothing
      if (random() % one_in == 0) pixel[kRed] = static_cast<std::uint8_t>(random() % 256);
    }
  }
  return {RandomPixels(width, height, seed), map};
}

void PlaceMap(TestWindow& window, const StuckPhoto& stuck) {
  const std::string folder = "program\\Cameras\\Default\\~ Dead Pixels\\" +
                             std::to_string(stuck.map->width()) + "x" +
                             std::to_string(stuck.map->height());
  window.folder.MakeFolder(folder);
  window.WriteBitmap(folder + "\\map.bmp", stuck.map);
}

TEST(CorrectionAgainstNaiveTest, DeadPixelsAreRepairedBeforeTheRun) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    TestWindow window;
    const StuckPhoto stuck = RandomStuckPhoto(seed);
    PlaceMap(window, stuck);
    ComparedRun run = RandomRun(seed, false);
    run.input.photo = *stuck.photo;
    run.input.open[kDeadPixelCorrection] = true;
    // The limits first: nothing is below 0, nothing above 255.
    const int threshold = seed == 1 ? 0 : seed == 2 ? 255 : static_cast<int>(seed * 37 % 256);
    run.input.values[9] = threshold;

    window.modules.open[kDeadPixelCorrection] = 1;
    window.modules.sliders[9].text = std::to_string(threshold);
    window.Show(stuck.photo);
    ASSERT_TRUE(AnalyzeOpenedPhoto(window.form).ok());
    const PixelArray expected = naive::RepairDeadPixels(*stuck.photo, *stuck.map, threshold);
    const PixelArray repaired = *window.surfaces().picOriginal.image;
    ASSERT_EQ(Difference({expected, {}}, {repaired, {}}), "")
        << "seed " << seed << ", threshold " << threshold;

    run.input.photo = repaired;
    ExpectSame(window, run);
  }
}

}  // namespace
}  // namespace tarnwell
