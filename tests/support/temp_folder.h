#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell {

// A fresh, empty folder in the system's temporary folder, removed with all it holds at the end of
// its life. Paths are UTF-8 and spelled with backslashes, as the rest of the program spells them;
// the folder and what is asked of it below go past the seams under test.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    do {
      folder_ =
          std::filesystem::temp_directory_path() / ("tarnwell-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(folder_));
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder, absolute and without a backslash at its end.
  std::string path() const { return Spell(folder_); }

  // The path of `name` in the folder; `name` may hold backslashes. Nothing is made.
  std::string File(const std::string& name) const { return path() + "\\" + name; }

  // Makes the file `name` (and the folders above it) hold `bytes`. Returns its path.
  std::string Write(const std::string& name, std::string_view bytes) const {
    const std::filesystem::path file = SystemPath(name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error("cannot write " + File(name));
    return File(name);
  }

  // Makes the folder `name` and those above it. Returns its path.
  std::string MakeFolder(const std::string& name) const {
    std::filesystem::create_directories(SystemPath(name));
    return File(name);
  }

  bool Holds(const std::string& name) const { return std::filesystem::exists(SystemPath(name)); }

  // The bytes of the file `name`; empty when there is none.
  std::string Read(const std::string& name) const {
    std::ifstream in(SystemPath(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  // The names of everything that lies directly in the folder, or in its sub-folder `name`, sorted.
  std::vector<std::string> Names(const std::string& name = {}) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SystemPath(name))) {
      names.push_back(Spell(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  // `name` in the folder (empty: the folder itself) for calls of the standard library.
  std::filesystem::path SystemPath(const std::string& name = {}) const {
    std::u8string spelled(name.begin(), name.end());
    std::replace(spelled.begin(), spelled.end(), u8'\\', u8'/');
    return spelled.empty() ? folder_ : folder_ / spelled;
  }

 private:
  static std::string Spell(const std::filesystem::path& path) {
    std::u8string spelled = path.generic_u8string();
    std::replace(spelled.begin(), spelled.end(), u8'/', u8'\\');
    return {spelled.begin(), spelled.end()};
  }

  std::filesystem::path folder_;
};

}  // namespace tarnwell
