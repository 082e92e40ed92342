// Writes the seeds of every fuzz target: make_seeds FOLDER gives FOLDER/TARGET/NUMBER.

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "fuzz/seeds.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_seeds FOLDER\n");
    return 2;
  }
  tarnwell::Seeds seeds;
  tarnwell::AddTextSeeds(seeds);
  tarnwell::AddPictureSeeds(seeds);
  tarnwell::AddMetadataSeeds(seeds);
  for (const auto& [target, inputs] : seeds) {
    const std::filesystem::path folder = std::filesystem::path(argv[1]) / target;
    std::error_code failed;
    std::filesystem::remove_all(folder, failed);
    std::filesystem::create_directories(folder, failed);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      std::ofstream out(folder / std::to_string(i), std::ios::binary);
      if (!(out << inputs[i]).flush()) {
        std::fprintf(stderr, "%s cannot be written\n", folder.c_str());
        return 1;
      }
    }
    std::printf("%s: %zu seeds\n", target.c_str(), inputs.size());
  }
  return 0;
}
