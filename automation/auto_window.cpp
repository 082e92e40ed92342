#include "automation/auto_window.h"

#include <new>
#include <utility>

#include "automation/switched_dialogs.h"
#include "imaging/file_open.h"
#include "platform/events.h"
#include "platform/platform.h"
#include "platform/system.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/tell.h"
#include "shell/tool_button.h"

namespace tarnwell {

// The state of the window for the time of one photo.
class AutoWindow::PhotoInHand {
 public:
  explicit PhotoInHand(AutoWindow& automated)
      : automated_(automated),
        progress_view_(std::exchange(automated.window_.form.progress.view, nullptr)) {
    automated_.window_.occupied = true;
    automated_.dialogs_.nobody_there = true;
  }
  ~PhotoInHand() {
    automated_.window_.occupied = false;
    automated_.dialogs_.nobody_there = false;
    automated_.window_.form.progress.view = progress_view_;
  }
  PhotoInHand(const PhotoInHand&) = delete;
  PhotoInHand& operator=(const PhotoInHand&) = delete;

 private:
  AutoWindow& automated_;
  ProgressView* const progress_view_;
};

AutoWindow::AutoWindow(MainWindow& window, SwitchedDialogs& dialogs, Tray& tray, AutoModeView& view)
    : window_(window), dialogs_(dialogs), view_(view), tray_{tray} {}

void AutoWindow::Load() {
  Form1& form = window_.form;
  TellFailure(form, LoadAutoSetup(form.platform.files, form.app.program_folder, mode_.folders));
  EndAutoMode(mode_, tray_);
}

void AutoWindow::Start() {
  Form1& form = window_.form;
  if (mode_.folders == AutoFolders{}) ShowSetup();
  if (mode_.folders == AutoFolders{} || !AskToSaveChanges(form)) return;
  for (const AutoFolder folder : {kOutputFolder, kProcessedFolder}) {
    DeleteStrayTemporaries(mode_.folders[folder]);
  }
  form.app.photo_changed = false;
  window_.automated_mode = true;
  StartAutoMode(mode_);
  view_.ModeStarted();
}

void AutoWindow::End() {
  window_.automated_mode = false;
  EndAutoMode(mode_, tray_);
  view_.ModeEnded();
}

void AutoWindow::ShowSetup() {
  Form1& form = window_.form;
  frmAutoSetup setup(mode_.folders);
  if (!view_.AskSetup(setup)) return;
  TellFailure(form, setup.OkClicked(form.platform.files, form.app.program_folder, mode_.folders));
}

void AutoWindow::Tick() {
  // A command that lets events in must not find another photo in the window afterwards.
  if (IsOccupied(window_) || window_.form.app.closing || mode_.busy) return;
  window_.pass_running = true;
  try {
    AutoModeTick(mode_, window_.form.platform, tray_, *this);
  } catch (const std::bad_alloc&) {
    // Nobody is there to be told; the next tick tries again.
  }
  window_.pass_running = false;
  if (std::exchange(window_.close_wanted, false)) window_.view.Close();
}

bool AutoWindow::IsTrayRowChecked(int row) const {
  return row == kTrayAutomatedMode && mode_.automated;
}

bool AutoWindow::IsTrayRowEnabled(int row) const {
  const bool begins_something =
      row == kTraySetup || (row == kTrayAutomatedMode && !mode_.automated);
  return !begins_something || mode_.busy || !IsOccupied(window_);
}

void AutoWindow::PressWhenFree(int button) {
  if (mode_.busy && window_.occupied) {
    pressed_ = button;
  } else {
    picToolBtn_Click(window_, button);
  }
}

void AutoWindow::TrayMenuClick(int row) {
  switch (row) {
    case kTrayAutomatedMode:
      if (mode_.automated) return End();
      return PressWhenFree(kAutomatedModeButton);
    case kTraySetup:
      return PressWhenFree(kAutomatedSetupButton);
    case kTrayStatus:
      return view_.ShowStatusWindow();
    case kTrayExit:
      return window_.view.Close();
  }
}

void AutoWindow::RemoveIcon() { RemoveTrayIcon(tray_); }

void AutoWindow::ShowStatus(const std::string&, AutoActivity) { view_.UpdateStatusWindow(); }

void AutoWindow::Report(const std::string& line) {
  // The reason to wait is the status itself.
  if (line == mode_.hold_reason) return;
  auto& problems = mode_.window.problems;
  problems.push_back(line);
  if (problems.size() > frmAutoMode::kMostProblems) problems.pop_front();
  view_.UpdateStatusWindow();
}

void AutoWindow::RefreshMainWindow() { window_.view.Refresh(); }

void AutoWindow::CorrectPhotos(AutoPass& pass) {
  for (std::size_t i = 0; i < pass.size() && !window_.close_wanted && pass.Begin(i); ++i) {
    {
      const PhotoInHand photo(*this);
      pass.Correct(i, window_.form);
    }
    window_.view.Refresh();
    if (const auto button = std::exchange(pressed_, std::nullopt)) {
      picToolBtn_Click(window_, *button);
    }
    window_.form.platform.events.Run();
  }
  // The pass after this one would be begun before the close is heard.
  if (window_.close_wanted) mode_.automated = false;
}

}  // namespace tarnwell
