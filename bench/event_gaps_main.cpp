// For how long a window would be deaf while a photo is opened, corrected and saved: the longest
// time between two looks at the pending events, in each phase. Takes megapixels (48 by default) and
// threads (all by default); needs no library, so that the Windows build can be asked, too.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "bench/generated_picture.h"
#include "console/console_dialogs.h"
#include "console/console_window.h"
#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "modules/module_table.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/system.h"

namespace tarnwell {
namespace {

using Time = std::chrono::steady_clock::time_point;

double Milliseconds(Time from, Time to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

// The looks at the pending events since the phase began.
struct Looks {
  Time begun;
  Time last;
  double longest = 0;
  double longest_at = 0;
  int count = 0;

  void Look() {
    const Time now = std::chrono::steady_clock::now();
    if (const double gap = Milliseconds(last, now); gap > longest) {
      longest = gap;
      longest_at = Milliseconds(begun, last);
    }
    last = now;
    ++count;
  }
};

class Desk {
 public:
  Desk(int megapixels, int threads)
      : window_(
            StartingPoint(), system_, dialogs_, [this] { return (looks_.Look(), false); },
            threads) {
    std::filesystem::create_directories(folder_);
    const auto picture = GeneratedPicture::OfMegapixels(megapixels);
    window_.app.open_mode = 2;
    window_.app.suppress_learning = true;
    window_.app.opened_path = PathOf("photo.jpg");
    if (!system_.jpeg->WritePicture(PathOf("photo.jpg"), {picture->view(), 92, false}).ok()) {
      std::puts("the photo could not be written");
    }
  }
  ~Desk() { std::filesystem::remove_all(folder_); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  void Open() {
    Phase("open", [&] { return FileOpen(window_.form, false); });
  }
  void Correct(const char* name, std::initializer_list<int> modules) {
    for (const int module : modules) window_.modules.open[module] = 1;
    Phase(name, [&] { return AdjustPhoto(window_.form, /*preview=*/false); });
    for (const int module : modules) window_.modules.open[module] = 0;
  }
  void Save(const char* file_name) {
    window_.form.names.output_path = PathOf(file_name);
    Phase(file_name, [&] { return FileSave(window_.form, /*notify=*/false); });
  }

 private:
  std::string PathOf(const char* name) {
    return system_.files->Absolute((folder_ / name).string());
  }

  template <typename Work>
  void Phase(const char* name, Work work) {
    looks_ = {};
    looks_.begun = looks_.last = std::chrono::steady_clock::now();
    const Status status = work();
    looks_.Look();
    std::printf("%-16s %8.0f ms, %6d looks, longest gap %6.1f ms after %.0f ms%s%s\n", name,
                Milliseconds(looks_.begun, looks_.last), looks_.count - 1, looks_.longest,
                looks_.longest_at, status.ok() ? "" : " ", status.message.c_str());
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "tarnwell-event-gaps";
  Looks looks_;
  ConsoleSystem system_;
  ConsoleDialogs dialogs_{std::cerr, false};
  ConsoleWindow window_;
};

void MeasureAll(int megapixels, int threads) {
  std::printf("%d megapixels, %d threads\n", megapixels, threads);
  Desk desk(megapixels, threads);
  desk.Open();
  desk.Correct("tones", {});
  desk.Correct("quarter turn", {kRotation});
  desk.Correct("focus", {kAdjustFocus});
  desk.Correct("noise", {kNoiseReduction});
  desk.Correct("noise and focus", {kNoiseReduction, kAdjustFocus});
  desk.Save("saved.jpg");
  desk.Save("saved.bmp");
}

}  // namespace
}  // namespace tarnwell

int main(int count, char** words) {
  const int megapixels = count > 1 ? std::atoi(words[1]) : 48;
  tarnwell::MeasureAll(std::max(megapixels, 1), count > 2 ? std::max(std::atoi(words[2]), 1)
                                                          : tarnwell::SystemProcessorCount());
}
