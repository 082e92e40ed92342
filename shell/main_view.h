#pragma once

#include <optional>
#include <string>

#include "platform/status.h"

namespace tarnwell {

// What only a window can do for the main window's commands. Hosts implement it; no rule is decided
// behind it. The windows that come up here are models of their own: showing one means reading its
// model and drawing it.
class MainView {
 public:
  virtual ~MainView() = default;

  // Draws the main window anew from Form1: title, pictures, menus, toolbar.
  virtual void Refresh() = 0;
  virtual void ShowStatus(const std::string& text) = 0;  // in the status bar

  // Shows this tip (1 to kTipCount) in the tips window, which does not hold up the program. Only
  // one that the user has asked for takes the keyboard.
  virtual void ShowTipsWindow(int tip, bool asked_for) = 0;
  virtual bool IsTipsWindowShown() const = 0;
  // Gives the module panel the keyboard, and as much of the screen's height as there is.
  virtual void MaximizeModules() = 0;
  virtual void ShowOpenMode() = 0;  // returns when the dialog is closed
  virtual void ShowAbout() = 0;
  virtual void StartAutomatedMode() = 0;
  virtual void EndAutomatedMode() = 0;
  virtual void ShowAutomatedSetup() = 0;

  // Opens drop-down menu `menu` below its button. The row that the user chose, or nothing.
  virtual std::optional<int> ChooseMenuRow(int menu) = 0;

  virtual Status OpenHelp(const std::string& help_file) = 0;
  virtual Status OpenWebPage(const std::string& address) = 0;
  virtual Status MakeQuickLaunchShortcut() = 0;

  // Requests the main window's end, as if the user had closed it. Returns at once; the request
  // comes back as a call of CloseMainWindow.
  virtual void Close() = 0;

  // The steps of the shut-down that are the system's; called by CloseMainWindow, in this order.
  virtual void ReleaseDrawing() = 0;
  virtual void RestoreWindowProcedure() = 0;
  virtual void UnloadOtherWindows() = 0;
  virtual void RemoveTrayIcon() = 0;
};

}  // namespace tarnwell
