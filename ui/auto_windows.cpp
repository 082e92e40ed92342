#include "ui/auto_windows.h"

#include <vector>

#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"
#include "ui/auto_mode_window.h"
#include "ui/auto_setup_window.h"
#include "ui/host_tray.h"
#include "ui/messages.h"
#include "ui/notification_panel.h"
#include "ui/popup_menu.h"
#include "ui/tooltip.h"
#include "ui/wide_text.h"

namespace tarnwell {

AutoWindows::AutoWindows(Form1& form, Messages& messages, HostTray& tray)
    : form_(form), messages_(messages), tray_(tray) {}
AutoWindows::~AutoWindows() = default;

void AutoWindows::Attach(const FrameWindow& main_window, AutoWindow& automated) {
  main_window_ = main_window.handle();
  main_look_ = &main_window.look();
  automated_ = &automated;
  tray_.menu_wanted = [this](POINT at) { OpenTrayMenu(at); };
  tray_.selected = [this] { automated_->mode().automated ? ShowStatusWindow() : ShowMainWindow(); };
  tray_.double_clicked = [this] { ShowMainWindow(); };
  form_.ShowNotification = [this](const std::string& text, int milliseconds) {
    if (!notification_) notification_ = std::make_unique<NotificationPanel>();
    notification_->ShowFor(text, milliseconds);
  };
}

void AutoWindows::ShowMainWindow() {
  ShowWindow(main_window_, IsIconic(main_window_) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(main_window_);
}

void AutoWindows::ShowFocus(bool show) {
  if (status_) status_->ShowFocus(show);
}

void AutoWindows::CloseAll() {
  form_.ShowNotification = [](const std::string&, int) {};
  KillTimer(main_window_, kAutoModeTimer);
  status_.reset();
  notification_.reset();
}

void AutoWindows::ModeStarted() {
  SetTimer(main_window_, kAutoModeTimer, kAutoModeMilliseconds, nullptr);
  ShowStatusWindow();
  Tooltip::Hide();  // of what is hidden with the window
  ShowWindow(main_window_, SW_HIDE);
}

void AutoWindows::ModeEnded() {
  KillTimer(main_window_, kAutoModeTimer);
  if (status_) status_->Show(false);
  ShowMainWindow();
}

bool AutoWindows::AskSetup(frmAutoSetup& setup) {
  AutoSetupWindow dialog(main_window_, setup, form_.platform.dialogs);
  if (!dialog.Run(messages_, main_window_)) return false;
  dialog.TakeFields();
  return true;
}

void AutoWindows::ShowStatusWindow() {
  if (!status_) {
    status_ = std::make_unique<AutoModeWindow>(automated_->mode(), form_.app.preset_path);
    status_->ShowFocus(main_look_->show_focus);
  }
  status_->Open();
}

void AutoWindows::UpdateStatusWindow() {
  if (status_) status_->Update();
}

void AutoWindows::OpenTrayMenu(POINT at) {
  std::vector<MenuEntry> entries;
  for (int row = 0; row < static_cast<int>(kTrayMenu.size()); ++row) {
    entries.push_back({.text = Wide(kTrayMenu[row]),
                       .separator = kTrayMenu[row] == "-",
                       .enabled = automated_->IsTrayRowEnabled(row),
                       .checked = automated_->IsTrayRowChecked(row)});
  }
  const Look& look = tray_.FreshLook();
  const MenuAnswer answer = ChooseFromMenu(tray_.handle(), look, entries, at, look.Px(28 * kGrid));
  if (answer.chosen) automated_->TrayMenuClick(*answer.chosen);
}

}  // namespace tarnwell
