// Whole programs on whole files, beside the floor: `bench/table` builds and starts this, and its
// output is the table of the README.
//
//   program_table TARNWELL-POCKET ROUNDS MEGAPIXELS...
//
// Everything is measured in turns, round by round, and the least of the rounds counts: what else
// the machine does meanwhile adds time and never takes any away.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "bench/jpeg_floor.h"

namespace tarnwell {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

struct Cost {
  double wall = 1e9;  // seconds
  double processor = 1e9;
  double peak_bytes = 0;
  bool works = true;

  void Take(const Cost& other) {
    wall = std::min(wall, other.wall);
    processor = std::min(processor, other.processor);
    peak_bytes = std::max(peak_bytes, other.peak_bytes);
    works = works && other.works;
  }
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Runs a command to its end, silent.
Cost Run(const Words& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    const int nothing = open("/dev/null", O_WRONLY);
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }
  int status = 0;
  rusage used = {};
  if (child < 0 || wait4(child, &status, 0, &used) != child) return {.works = false};
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
  return {wall.count(), Seconds(used.ru_utime) + Seconds(used.ru_stime),
          static_cast<double>(used.ru_maxrss) * 1024, status == 0};
}

bool IsInstalled(const std::string& program) {
  return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

struct Row {
  std::string name;
  std::string program;  // that must be there; empty when it is
  Words words;          // IN and OUT stand for the files
};

std::vector<Row> RowsFor(const std::string& self, const std::string& pocket,
                         const std::string& folder) {
  const auto correct = [&](const std::string& threads) {
    return Words{pocket, "correct",   "IN",    "--quiet",  "--program-folder",
                 folder, "--threads", threads, "--output", "OUT"};
  };
  return {
      {"the floor: decode, encode", "", {self, "floor", "IN"}},
      {"the floor, from file to flushed file", "", {self, "floor", "IN", "OUT"}},
      {"`tarnwell-pocket correct`, 1 thread", "", correct("1")},
      {"`tarnwell-pocket correct`, 2 threads", "", correct("2")},
      {"`vips hist_equal`", "vips", {"vips", "hist_equal", "IN", "OUT[Q=80]"}},
      {"`gm convert -normalize`",
       "gm",
       {"gm", "convert", "IN", "-normalize", "-quality", "80", "OUT"}},
      {"`convert -normalize`", "convert", {"convert", "IN", "-normalize", "-quality", "80", "OUT"}},
  };
}

Words Filled(Words words, const std::string& in, const std::string& out) {
  for (std::string& word : words) {
    if (word == "IN") word = in;
    if (word.starts_with("OUT")) word.replace(0, 3, out);
  }
  return words;
}

// What the rows cost for a photo of this size, in the order of the rows.
std::vector<Cost> Measure(const std::vector<Row>& rows, const std::string& self, int rounds,
                          int megapixels, const std::string& folder) {
  const std::string in = folder + "/in.jpg", out = folder + "/out.jpg";
  Run({self, "make", std::to_string(megapixels), in});
  std::vector<Cost> costs(rows.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (!rows[i].program.empty() && !IsInstalled(rows[i].program)) {
        costs[i].works = false;
        continue;
      }
      fs::remove(out);
      costs[i].Take(Run(Filled(rows[i].words, in, out)));
    }
  }
  return costs;
}

void Print(const std::vector<Row>& rows, const std::vector<int>& sizes,
           const std::vector<std::vector<Cost>>& costs) {
  std::printf("| Wall time / processor time / peak memory |");
  for (const int size : sizes) std::printf(" %d MP |", size);
  std::printf("\n|---|");
  for (std::size_t i = 0; i < sizes.size(); ++i) std::printf("---|");
  for (std::size_t row = 0; row < rows.size(); ++row) {
    std::printf("\n| %s |", rows[row].name.c_str());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const Cost &cost = costs[i][row], &floor = costs[i].front();
      if (!cost.works) {
        std::printf(" not here |");
        continue;
      }
      std::printf(" %.2f / %.2f / %.2f |", cost.wall / floor.wall, cost.processor / floor.processor,
                  cost.peak_bytes / (sizes[i] * 4e6));
    }
  }
  std::printf("\n\nThe floor took");
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const Cost& floor = costs[i].front();
    std::printf("%s %.0f ms (processor: %.0f ms) for %d MP", i > 0 ? "," : "", floor.wall * 1e3,
                floor.processor * 1e3, sizes[i]);
  }
  double load = 0;
  getloadavg(&load, 1);
  std::printf(". Load of the machine: %.1f.\n", load);
}

// A folder of photos on one thread and on two, and whether their number shows in the memory.
void MeasureFolder(const std::string& pocket, const std::string& self, int rounds,
                   const std::string& folder) {
  constexpr int kMegapixels = 4, kFew = 20, kMany = 100;
  const std::string photos = folder + "/photos", first = photos + "/0.jpg";
  const auto correct = [&](const char* threads) {
    fs::remove_all(photos + "/TWout");
    return Run(
        {pocket, "directory", photos, "--quiet", "--program-folder", folder, "--threads", threads});
  };
  const auto fill_up = [&](int count) {
    for (int i = 1; i < count; ++i) {
      fs::copy_file(first, photos + "/" + std::to_string(i) + ".jpg",
                    fs::copy_options::skip_existing);
    }
  };
  fs::create_directories(photos);
  Run({self, "make", std::to_string(kMegapixels), first});
  fill_up(kFew);
  const Cost few = correct("2");
  fill_up(kMany);
  Cost on_one, on_two;
  for (int round = 0; round < rounds; ++round) {
    on_one.Take(correct("1"));
    on_two.Take(correct("2"));
  }
  std::printf(
      "`directory` with %d photos of %d MP: on 2 threads %.2f times as fast as on 1; peak memory "
      "on 2 threads %.0f MB, with %d photos %.0f MB.\n",
      kMany, kMegapixels, on_one.wall / on_two.wall, on_two.peak_bytes / 1e6, kFew,
      few.peak_bytes / 1e6);
}

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Decodes and encodes; into a flushed file of that name, if there is one.
int RunFloorOn(const std::string& in, const std::string& out) {
  const std::string encoded = FloorOf(Content(in));
  if (out.empty()) return 0;
  const std::string temporary = out + ".tmp";
  const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (write(file, encoded.data(), encoded.size()) != static_cast<ssize_t>(encoded.size())) return 1;
  if (fsync(file) != 0 || close(file) != 0) return 1;
  fs::rename(temporary, out);
  const int folder = open(fs::path(out).parent_path().c_str(), O_RDONLY | O_DIRECTORY);
  return fsync(folder);
}

int Main(const Words& words) {
  const std::string self = fs::read_symlink("/proc/self/exe");
  if (words.size() >= 2 && words[0] == "floor") {
    return RunFloorOn(words[1], words.size() > 2 ? words[2] : "");
  }
  if (words.size() == 3 && words[0] == "make") {
    std::ofstream(words[2], std::ios::binary) << GeneratedPhoto(std::stoi(words[1]));
    return 0;
  }
  if (words.size() < 3) {
    std::fprintf(stderr, "usage: program_table TARNWELL-POCKET ROUNDS MEGAPIXELS...\n");
    return 2;
  }
  const std::string folder =
      fs::temp_directory_path() / ("tarnwell-table-" + std::to_string(getpid()));
  fs::create_directories(folder);
  const std::vector<Row> rows = RowsFor(self, words[0], folder);
  std::vector<int> sizes;
  std::vector<std::vector<Cost>> costs;
  for (std::size_t i = 2; i < words.size(); ++i) {
    sizes.push_back(std::stoi(words[i]));
    costs.push_back(Measure(rows, self, std::stoi(words[1]), sizes.back(), folder));
  }
  Print(rows, sizes, costs);
  MeasureFolder(words[0], self, std::stoi(words[1]), folder);
  fs::remove_all(folder);
  return 0;
}

}  // namespace
}  // namespace tarnwell

int main(int argc, char** argv) { return tarnwell::Main({argv + (argc > 0 ? 1 : 0), argv + argc}); }
