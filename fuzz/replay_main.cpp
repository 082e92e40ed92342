// Runs a fuzz target over stored inputs: every file of the folders named on the command line, cut
// and flipped too, then noise. A fault ends the program, as it would end the fuzzer; a run that
// found no stored input has failed.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void Run(const std::string& bytes) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

// Every start of a file, and the file with single bytes changed: the commonest damage.
void RunWithDamage(const std::string& bytes) {
  constexpr int kChanges = 200;
  std::minstd_rand random(1);
  Run(bytes);
  for (std::size_t size = 0; size < bytes.size(); size += 1 + bytes.size() / kChanges) {
    Run(bytes.substr(0, size));
  }
  for (int i = 0; i < kChanges && !bytes.empty(); ++i) {
    std::string changed = bytes;
    changed[random() % changed.size()] = static_cast<char>(random());
    Run(changed);
  }
}

void RunNoise() {
  std::minstd_rand random(2);
  for (std::size_t size = 0; size < 200; ++size) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    Run(bytes);
  }
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(argv[i], error)) {
      std::ifstream in(entry.path(), std::ios::binary);
      std::printf("%s\n", entry.path().filename().string().c_str());
      RunWithDamage({std::istreambuf_iterator<char>(in), {}});
      ++count;
    }
  }
  RunNoise();
  std::printf("%d stored inputs replayed\n", count);
  return count > 0 ? 0 : 1;
}
