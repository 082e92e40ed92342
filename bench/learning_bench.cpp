// What learning costs: loading a full file when a mode is selected, and the proposal for a
// correction run. Both must be too short to notice.

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "engine/learning_store.h"
#include "platform/files.h"
#include "platform/system.h"

namespace tarnwell {
namespace {

LearningRecord RandomRecord(std::minstd_rand& random) {
  std::uniform_real_distribution<double> share(0.0, 0.3);
  LearningRecord record = {};
  for (double& field : record) field = share(random);
  for (const int level : {kHighestSumSeen, kWhitePoint}) record[level] = 650 + 100 * share(random);
  record[kHighestMaxChannel] = 230;
  return record;
}

std::string FullFile() {
  std::minstd_rand random(1);
  std::string text;
  for (int i = 0; i < kMostRecords; ++i)
    text += FormatLearningRecord(RandomRecord(random)) + "\r\n";
  return text;
}

void LoadFullFile(benchmark::State& state) {
  const auto files = MakeSystemFiles();
  const auto folder = std::filesystem::temp_directory_path() / "tarnwell-learning-bench";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / kLearningFile, std::ios::binary) << FullFile();
  const std::string mode_folder = files->Absolute(folder.string()) + "\\";
  for (auto _ : state) {
    const LoadedLearning loaded = LoadLearningData(*files, mode_folder);
    if (loaded.data.records.size() != kMostRecords) state.SkipWithError("records are missing");
  }
  state.SetItemsProcessed(state.iterations() * kMostRecords);
  std::filesystem::remove_all(folder);
}
BENCHMARK(LoadFullFile)->Unit(benchmark::kMicrosecond);

void Propose(benchmark::State& state) {
  const LoadedLearning loaded = ParseLearningData(FullFile(), "bench");
  std::minstd_rand random(2);
  const LearningRecord photo = RandomRecord(random);
  for (auto _ : state) benchmark::DoNotOptimize(ProposalFor(loaded.data, photo));
  state.SetItemsProcessed(state.iterations() * kMostRecords);
}
BENCHMARK(Propose)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarnwell
