#include "console/watch_command.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "automation/auto_mode.h"
#include "automation/photo_budget.h"
#include "automation/photo_workers.h"
#include "automation/unattended_dialogs.h"
#include "console/console_host.h"
#include "console/console_window.h"
#include "console/shown_text.h"
#include "console/watch_lines.h"

namespace tarnwell {
namespace {

class NoTray : public Tray {
 public:
  void SetIcon(TrayPicture) override {}
  void SetTip(const std::string&) override {}
  void Remove() override {}
};

class WatchCommand : public AutoModeHost {
 public:
  WatchCommand(const WatchOptions& options, ConsoleHost& host)
      : options_(options), host_(host), lines_(host, options.settings.quiet) {}

  int Run();

  void ShowStatus(const std::string& text, AutoActivity activity) override {
    lines_.ShowStatus(text, activity);
  }
  void Report(const std::string& line) override { lines_.Report(line); }
  void PhotoDone(const std::string& name, const std::string& saved_as) override {
    lines_.PhotoDone(name, system_.files->Display(saved_as));
  }
  void RefreshMainWindow() override {}
  void CorrectPhotos(AutoPass& pass) override;

 private:
  // Whether the photo in hand is to be cancelled, which is asked all the time from its thread. A
  // stop is heard between photos only, so that none is left both saved and not moved.
  bool EndsPhoto();

  void WatchUntilStopped(Platform& platform);
  void TakeOnce(Platform& platform);
  void Sleep() const;

  const WatchOptions& options_;
  ConsoleHost& host_;
  WatchLines lines_;
  UnattendedDialogs dialogs_{[this](const std::string& text) { lines_.Report(text); }};
  ConsoleSystem system_;
  StartingPoint start_;
  MemoryBudget budget_{BudgetOfThisMachine()};
  NoTray no_tray_;
  SysTray tray_{no_tray_};
  AutoMode mode_;
  std::atomic<bool> stop_told_ = false;
  bool photos_left_ = false;  // a stop came before all that were there were corrected
};

bool WatchCommand::EndsPhoto() {
  const bool news = host_.interrupted() && !options_.settings.quiet && !stop_told_.exchange(true);
  if (news) lines_.Report("Ending after the photos in hand; Ctrl+C again ends at once.");
  return false;
}

void WatchCommand::CorrectPhotos(AutoPass& pass) {
  const int threads = ThreadsOf(options_.settings);
  const int workers = static_cast<int>(std::clamp<std::size_t>(pass.size(), 1, threads));
  std::vector<std::uint64_t> memory(pass.size());
  const auto begin = [&](std::size_t index) {
    photos_left_ = host_.interrupted();
    if (photos_left_ || !pass.Begin(index)) return false;
    memory[index] = MemoryForPhoto(*system_.files, start_.modules, pass.PathOf(index));
    budget_.Take(memory[index]);
    return true;
  };
  const auto correct = [&](std::size_t index) {
    const TakenMemory taken(budget_, memory[index]);
    ConsoleSystem system;  // its codecs are shared with nobody
    ConsoleWindow window(
        start_, system, dialogs_, [this] { return EndsPhoto(); },
        ThreadsPerPhoto(budget_, memory[index], threads, workers));
    pass.Correct(index, window.form);
  };
  ForEachPhoto(pass.size(), workers, begin, correct);
}

void WatchCommand::Sleep() const {
  constexpr int kSlice = 50;  // milliseconds until a stop is heard
  for (int slept = 0; slept < kAutoModeMilliseconds && !host_.interrupted(); slept += kSlice) {
    std::this_thread::sleep_for(std::chrono::milliseconds(kSlice));
  }
}

void WatchCommand::WatchUntilStopped(Platform& platform) {
  while (!host_.interrupted()) {
    AutoModeTick(mode_, platform, tray_, *this);
    Sleep();
  }
}

void WatchCommand::TakeOnce(Platform& platform) {
  mode_.once = true;
  AutoModeTick(mode_, platform, tray_, *this);
  if (mode_.waiting == 0) return;
  if (host_.interrupted()) photos_left_ = true;
  if (photos_left_) return;
  // What could not be opened may have been on its way here: it gets a second look.
  Sleep();
  AutoModeTick(mode_, platform, tray_, *this);
}

int WatchCommand::Run() {
  ConsoleWindow window(
      start_, system_, dialogs_, [] { return false; }, 1);
  const Status prepared = Prepare(options_.settings, window.platform, host_.err, start_);
  if (!prepared.ok()) {
    TellLine(host_.err, prepared.message);
    return CodeOfRefusal(prepared);
  }
  const std::string* const named[] = {&options_.input, &options_.output, &options_.processed};
  for (int i = 0; i < 3; ++i) mode_.folders[i] = WithBackslash(system_.files->Absolute(*named[i]));
  DeleteStrayTemporaries(mode_.folders[kOutputFolder]);
  DeleteStrayTemporaries(mode_.folders[kProcessedFolder]);

  StartAutoMode(mode_);
  options_.once ? TakeOnce(window.platform) : WatchUntilStopped(window.platform);
  if (options_.once && photos_left_) return kInterrupted;
  const bool unfinished = !mode_.hold_reason.empty() || (options_.once && mode_.waiting > 0);
  return mode_.watched.given_up() > 0 || unfinished ? kSomePhotoFailed : kDone;
}

}  // namespace

int RunWatchCommand(const WatchOptions& options, ConsoleHost& host) {
  return WatchCommand(options, host).Run();
}

}  // namespace tarnwell
