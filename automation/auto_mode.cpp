#include "automation/auto_mode.h"

#include <new>
#include <utility>

#include "platform/clock.h"
#include "platform/events.h"
#include "platform/files.h"
#include "platform/platform.h"

namespace tarnwell {
namespace {

// How long a folder that takes no more is left alone: every try corrects a photo in vain.
constexpr std::int64_t kHoldNanos = 30'000'000'000;

std::string IdleText(const std::string& input_folder) {
  return "Waiting...\r\n\r\nWatching for images in:\r\n" + input_folder;
}

void SetStatus(AutoMode& mode, AutoModeHost& host, const std::string& text, AutoActivity activity) {
  if (mode.window.lblStatus == text) return;
  mode.window.lblStatus = text;
  host.ShowStatus(text, activity);
}

void Hold(AutoMode& mode, AutoModeHost& host, const std::string& reason, std::int64_t until) {
  mode.hold_until = until;
  if (mode.hold_reason == reason) return;
  mode.hold_reason = reason;
  host.Report(reason);
}

// The rule for free names looks at the whole path, folders included.
AutoFolders AbsoluteFolders(const AutoFolders& folders, Files& files) {
  AutoFolders absolute;
  for (int i = 0; i < 3; ++i) absolute[i] = WithBackslash(files.Absolute(folders[i]));
  return absolute;
}

// Why these folders cannot be worked with; empty when they can.
std::string WrongWith(const AutoFolders& folders, Files& files) {
  for (const std::string& folder : folders) {
    if (!files.FolderExists(folder)) return files.Display(folder) + ": no such folder";
  }
  for (const AutoFolder target : {kOutputFolder, kProcessedFolder}) {
    // What is written into the input folder would be taken for a new photo, for ever.
    if (files.IsSameFolder(folders[target], folders[kInputFolder])) {
      return files.Display(folders[target]) +
             ": the input folder cannot be the output or processed folder as well";
    }
  }
  return {};
}

// One listing of the input folder and the photos that are ready there. False when there is nothing
// more to do in this tick.
bool RunPass(AutoMode& mode, Platform& platform, SysTray& tray, AutoModeHost& host) {
  platform.events.Run();
  const std::int64_t now = platform.clock.Nanos();
  if (now < mode.hold_until) return false;
  const AutoFolders folders = AbsoluteFolders(mode.folders, platform.files);
  if (const std::string wrong = WrongWith(folders, platform.files); !wrong.empty()) {
    Hold(mode, host, wrong, now);
    return false;
  }
  auto ready = mode.watched.Look(platform.files, folders[kInputFolder], now, mode.once);
  if (!ready.ok()) {
    Hold(mode, host, ready.status.message, now);
    return false;
  }
  mode.waiting = 0;
  // A reason that came with a time is over only when a photo has gone through.
  if (mode.hold_until == 0 || ready->empty()) mode.hold_reason.clear();
  if (ready->empty()) return false;
  AutoPass pass(mode, folders, std::move(*ready), platform, tray, host);
  host.CorrectPhotos(pass);
  return pass.moved_on();
}

bool TryPass(AutoMode& mode, Platform& platform, SysTray& tray, AutoModeHost& host) {
  try {
    return RunPass(mode, platform, tray, host);
  } catch (const std::bad_alloc&) {
    Hold(mode, host, kNoMemory, platform.clock.Nanos() + kHoldNanos);
    return false;
  }
}

void ShowIdle(AutoMode& mode, bool worked, Files& files, SysTray& tray, AutoModeHost& host) {
  if (worked || tray.state != TrayState::kIdle) {
    SetTrayIcon(tray, TrayPicture::kIdle);
    SetTrayState(tray, TrayState::kIdle);
  }
  if (mode.hold_reason.empty()) {
    SetStatus(mode, host, IdleText(files.Display(mode.folders[kInputFolder])),
              AutoActivity::kWaiting);
  } else {
    SetStatus(mode, host, mode.hold_reason, AutoActivity::kOnHold);
  }
}

// A tick under way, however it ends.
class Busy {
 public:
  explicit Busy(AutoMode& mode) : mode_(mode) { mode_.busy = true; }
  ~Busy() { mode_.busy = mode_.worked = false; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  AutoMode& mode_;
};

}  // namespace

AutoPass::AutoPass(AutoMode& mode, const AutoFolders& folders, std::vector<WatchedPhoto> photos,
                   Platform& platform, SysTray& tray, AutoModeHost& host)
    : mode_(mode),
      folders_(folders),
      photos_(std::move(photos)),
      tasks_(photos_.size()),
      platform_(platform),
      tray_(tray),
      host_(host),
      plan_(platform.files) {}

bool AutoPass::Begin(std::size_t index) {
  const std::lock_guard lock(mutex_);
  if (stopped_ || !mode_.automated) return false;
  if (!mode_.worked) {
    mode_.worked = true;
    SetTrayIcon(tray_, TrayPicture::kBusy);
    SetTrayState(tray_, TrayState::kProcessing);
  }
  const WatchedPhoto& photo = photos_[index];
  AutoPhotoTask& task = tasks_[index];
  task.correct.photo = PathOf(index);
  task.saved_as = photo.saved_as;
  task.version = task.saved_as.empty() ? VersionNow(index) : photo.corrected;
  if (task.saved_as.empty()) {
    task.correct.wanted = folders_[kOutputFolder] + photo.name;
    task.correct.target = plan_.Take(task.correct.wanted);
  }
  task.move_wish = folders_[kProcessedFolder] + photo.name;
  task.move_to = plan_.Take(task.move_wish);
  return true;
}

// A folder's list may be older than its files: what the photo is compared with later comes from the
// same source as that.
PhotoVersion AutoPass::VersionNow(std::size_t index) const {
  const auto found = platform_.files.Find(PathOf(index));
  return found.ok() ? PhotoVersion{found->size, found->modified_nanos} : photos_[index].version;
}

void AutoPass::Correct(std::size_t index, Form1& form) {
  const AutoPhotoOutcome outcome =
      ProcessPhoto(form, tasks_[index], plan_, [this](const std::string& text) {
        const std::lock_guard lock(mutex_);
        // Ended meanwhile, the mode is off for the user; the photo in hand is only seen through.
        if (mode_.automated) SetStatus(mode_, host_, text, AutoActivity::kCorrecting);
      });
  const std::lock_guard lock(mutex_);
  Settle(index, outcome);
}

void AutoPass::Settle(std::size_t index, const AutoPhotoOutcome& outcome) {
  const WatchedPhoto& photo = photos_[index];
  for (const std::string& note : outcome.notes) host_.Report(note);
  switch (outcome.fate) {
    case PhotoFate::kDone:
      moved_on_ = true;
      if (!stopped_) mode_.hold_reason.clear();
      if (!stopped_) mode_.hold_until = 0;
      host_.PhotoDone(photo.name, outcome.saved_as);
      break;
    case PhotoFate::kGone:
      moved_on_ = true;
      if (!outcome.saved_as.empty()) {
        host_.Report(photo.name + ": was taken away while it was corrected; its copy is " +
                     platform_.files.Display(outcome.saved_as));
      }
      break;
    case PhotoFate::kChanged:
      ++mode_.waiting;
      host_.Report(photo.name + ": was changed while it was corrected; it is taken up again");
      break;
    case PhotoFate::kWaits:
      ++mode_.waiting;
      if (mode_.watched.FirstComplaint(photo)) host_.Report(outcome.status.message);
      break;
    case PhotoFate::kFailed:
      mode_.watched.GiveUp(photo);
      host_.Report(outcome.status.message);
      break;
    case PhotoFate::kFolderFailed:
      stopped_ = true;
      if (!outcome.saved_as.empty()) {
        mode_.watched.Saved(photo, outcome.saved_as, tasks_[index].version);
      }
      Hold(mode_, host_, outcome.status.message, platform_.clock.Nanos() + kHoldNanos);
      break;
    case PhotoFate::kStopped:
      stopped_ = true;
      break;
  }
}

void StartAutoMode(AutoMode& mode) {
  mode.automated = true;
  mode.watched.ForgetAll();
  mode.hold_reason.clear();
  mode.hold_until = 0;
  mode.window = {};
}

void EndAutoMode(AutoMode& mode, SysTray& tray) {
  mode.automated = false;
  mode.window = {.lblStatus = "The automated mode is off.", .problems = {}};
  SetTrayIcon(tray, TrayPicture::kIdle);
  SetTrayState(tray, TrayState::kOff);
}

void AutoModeTick(AutoMode& mode, Platform& platform, SysTray& tray, AutoModeHost& host) {
  if (!mode.automated || mode.busy) return;
  const Busy busy(mode);
  while (TryPass(mode, platform, tray, host) && mode.automated && !mode.once) {
  }
  // Over before the status says so: the window shows both.
  const bool worked = std::exchange(mode.worked, false);
  if (mode.automated) ShowIdle(mode, worked, platform.files, tray, host);
  if (worked) host.RefreshMainWindow();
}

}  // namespace tarnwell
