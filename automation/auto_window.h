#pragma once

#include <optional>
#include <string>

#include "automation/auto_mode.h"
#include "automation/tray_menu.h"

namespace tarnwell {

class SwitchedDialogs;
struct MainWindow;

// The windows and the timer of the automated mode, which the host draws and drives.
class AutoModeView {
 public:
  virtual ~AutoModeView() = default;

  // Ticks come every kAutoModeMilliseconds from now on, and the main window makes way.
  virtual void ModeStarted() = 0;
  virtual void ModeEnded() = 0;  // no more ticks; the main window is there again
  // The setup window, until it is answered; true for OK.
  virtual bool AskSetup(frmAutoSetup& setup) = 0;
  virtual void ShowStatusWindow() = 0;
  virtual void UpdateStatusWindow() = 0;  // its texts have changed
};

// The automated mode in the main window. While a photo is in hand no other command begins, no box
// comes up, and the progress window stays away; between photos the window is the user's.
class AutoWindow : public AutoModeHost {
 public:
  // All live until the program ends. `dialogs` are those of the window.
  AutoWindow(MainWindow& window, SwitchedDialogs& dialogs, Tray& tray, AutoModeView& view);

  const AutoMode& mode() const { return mode_; }

  void Load();  // reads the settings and shows the icon
  // Switches the mode on, after a setup if there has been none. What the photo in the window has
  // not saved yet is asked for first.
  void Start();
  void End();
  void ShowSetup();
  void Tick();

  bool IsTrayRowChecked(int row) const;
  // Not while a command of the user's runs, which the mode would come between.
  bool IsTrayRowEnabled(int row) const;
  // The mode's row switches it off when it runs. What a command in hand does not let through now is
  // pressed between two photos.
  void TrayMenuClick(int row);
  void RemoveIcon();

  void ShowStatus(const std::string& text, AutoActivity activity) override;
  void Report(const std::string& line) override;
  void PhotoDone(const std::string&, const std::string&) override {}
  void RefreshMainWindow() override;
  void CorrectPhotos(AutoPass& pass) override;

 private:
  class PhotoInHand;
  void PressWhenFree(int button);

  MainWindow& window_;
  SwitchedDialogs& dialogs_;
  AutoModeView& view_;
  SysTray tray_;
  AutoMode mode_;
  std::optional<int> pressed_;  // from the tray menu, while a photo was in hand
};

}  // namespace tarnwell
