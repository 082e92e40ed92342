#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "automation/auto_photo.h"
#include "automation/auto_setup.h"
#include "automation/name_plan.h"
#include "automation/sys_tray.h"
#include "automation/watched_folder.h"

namespace tarnwell {

class AutoPass;
struct Platform;

// The timer that drives the automated mode.
inline constexpr int kAutoModeMilliseconds = 1000;

// The status window. Its button closes the window and nothing else: the mode goes on.
struct frmAutoMode {
  static constexpr char kCaption[] = " Fully Automated Mode Running";
  static constexpr char kCloseButton[] = "&Close";
  static constexpr std::size_t kMostProblems = 3;

  std::string lblStatus;
  std::deque<std::string> problems;  // why photos were not corrected; the last of them, newest last
};

// The run state of the automated mode, kept by the modules window.
struct AutoMode {
  AutoFolders folders;  // as set up

  bool automated = false;  // the loop runs only while it is set
  bool busy = false;       // a pass is running; ticks meanwhile do nothing
  bool worked = false;     // a photo has been taken up in the current pass
  bool once = false;       // a tick is one pass; photos are ready at the first look
  frmAutoMode window;
  WatchedFolder watched;

  // Why the mode does not go on at present, and when it tries again. Empty: it does.
  std::string hold_reason;
  std::int64_t hold_until = 0;

  int waiting = 0;  // photos of the last pass that are not ready yet
};

// What the mode is at while a status stands. On hold it waits for something that went wrong.
enum class AutoActivity { kCorrecting, kWaiting, kOnHold };

// Who runs the mode: the window, or a command.
class AutoModeHost {
 public:
  virtual ~AutoModeHost() = default;

  // In the status window.
  virtual void ShowStatus(const std::string& text, AutoActivity activity) = 0;
  // A photo was given up, or the mode must wait; one line, each reason told once.
  virtual void Report(const std::string& line) = 0;
  virtual void PhotoDone(const std::string& name, const std::string& saved_as) = 0;
  virtual void RefreshMainWindow() = 0;
  // Takes the photos of the pass, in order, through pass.Begin and pass.Correct. The other methods
  // are called meanwhile, one at a time, from the threads that do so.
  virtual void CorrectPhotos(AutoPass& pass) = 0;
};

// The photos that one listing of the input folder found ready.
class AutoPass {
 public:
  AutoPass(AutoMode& mode, const AutoFolders& folders, std::vector<WatchedPhoto> photos,
           Platform& platform, SysTray& tray, AutoModeHost& host);

  std::size_t size() const { return photos_.size(); }
  std::string PathOf(std::size_t index) const {
    return folders_[kInputFolder] + photos_[index].name;
  }

  // Takes up photo `index` and settles its names; to be called in order, one at a time. False when
  // no more photos are to be begun.
  bool Begin(std::size_t index);
  // Corrects it in this window. May run beside others, each in a window of its own.
  void Correct(std::size_t index, Form1& form);

  // Whether anything has changed in the input folder.
  bool moved_on() const { return moved_on_; }

 private:
  PhotoVersion VersionNow(std::size_t index) const;
  void Settle(std::size_t index, const AutoPhotoOutcome& outcome);

  AutoMode& mode_;
  const AutoFolders folders_;
  std::vector<WatchedPhoto> photos_;
  std::vector<AutoPhotoTask> tasks_;
  Platform& platform_;
  SysTray& tray_;
  AutoModeHost& host_;
  NamePlan plan_;
  std::mutex mutex_;
  bool moved_on_ = false;
  bool stopped_ = false;
};

// Switches the mode on. What was given up is tried anew.
void StartAutoMode(AutoMode& mode);
// Switches it off. A pass that is under way ends before its next photo.
void EndAutoMode(AutoMode& mode, SysTray& tray);

// One tick of the timer: takes the photos in the input folder until none is ready.
void AutoModeTick(AutoMode& mode, Platform& platform, SysTray& tray, AutoModeHost& host);

}  // namespace tarnwell
