#pragma once

#include <memory>
#include <windows.h>

#include "automation/auto_window.h"

namespace tarnwell {

class AutoModeWindow;
class FrameWindow;
class HostTray;
class Messages;
class NotificationPanel;
struct Form1;
struct Look;

// The windows of the automated mode and the menu of its icon.
class AutoWindows : public AutoModeView {
 public:
  AutoWindows(Form1& form, Messages& messages, HostTray& tray);
  ~AutoWindows() override;
  AutoWindows(const AutoWindows&) = delete;
  AutoWindows& operator=(const AutoWindows&) = delete;

  // Once both are there. `main_window` is given the ticks, as timer kAutoModeTimer; windows that
  // are made later begin with its look.
  void Attach(const FrameWindow& main_window, AutoWindow& automated);
  void ShowMainWindow();
  void ShowFocus(bool show);
  void CloseAll();

  void ModeStarted() override;
  void ModeEnded() override;
  bool AskSetup(frmAutoSetup& setup) override;
  void ShowStatusWindow() override;
  void UpdateStatusWindow() override;

 private:
  void OpenTrayMenu(POINT at);

  Form1& form_;
  Messages& messages_;
  HostTray& tray_;
  HWND main_window_ = nullptr;
  const Look* main_look_ = nullptr;
  AutoWindow* automated_ = nullptr;
  std::unique_ptr<AutoModeWindow> status_;
  std::unique_ptr<NotificationPanel> notification_;
};

inline constexpr UINT_PTR kAutoModeTimer = 3;

}  // namespace tarnwell
