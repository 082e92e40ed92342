// The program's corrections against the naive form, byte by byte, in random runs.
// TARNWELL_RANDOM_RUNS makes the test longer, TARNWELL_RANDOM_SEED starts it at another seed; with
// one run and the seed of a failure that run is repeated.

#include <cstdlib>
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

// Seeds are numbered on from the first; every 100th photo is a large one.
TEST(CorrectionAgainstNaiveTest, RandomRuns) {
  TestWindow window;
  const std::uint32_t first = NumberFromEnvironment("TARNWELL_RANDOM_SEED", 1);
  const std::uint32_t runs = NumberFromEnvironment("TARNWELL_RANDOM_RUNS", 250);
  for (std::uint32_t seed = first; seed < first + runs && !HasFailure(); ++seed) {
    ExpectSame(window, RandomRun(seed, seed % 100 == 0));
  }
}

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

TEST(CorrectionAgainstNaiveTest, DeadPixelsAreRepairedBeforeTheRun) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    TestWindow window;
    const StuckPhoto stuck = RandomStuckPhoto(seed);
    const std::string folder = "program\\Cameras\\Default\\~ Dead Pixels\\" +
                               std::to_string(stuck.map->width()) + "x" +
                               std::to_string(stuck.map->height());
    window.folder.MakeFolder(folder);
    window.WriteBitmap(folder + "\\map.bmp", stuck.map);
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
