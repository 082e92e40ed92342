#pragma once

#include <functional>
#include <windows.h>

#include "platform/events.h"

namespace tarnwell {

// The program's messages: what the keyboard means in every window (access keys, Tab, Enter on a
// button, shortcuts of the menus), and how long loops let waiting messages in. One per program.
class Messages : public PendingEvents {
 public:
  // The main window's shortcuts, as the menus spell them ("ALT+O", "F1"); true when it was one.
  std::function<bool(const char* shortcut)> on_shortcut = [](const char*) { return false; };
  // The keyboard (true) or the pointer was used last.
  std::function<void(bool)> on_keyboard_used = [](bool) {};
  HWND main_window = nullptr;

  void Run() override;  // handles what waits

  // While it lives, Run() does nothing: for what is over sooner than anybody could act.
  class Hold {
   public:
    explicit Hold(Messages& messages) : messages_(messages) { messages_.held_ = true; }
    ~Hold() { messages_.held_ = false; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    Messages& messages_;
  };

  // Handles messages until the program ends. Returns its exit code.
  int RunUntilQuit();
  // Handles messages while `goes_on`, or until the program ends.
  void RunWhile(const std::function<bool()>& goes_on);

 private:
  void Dispatch(MSG& message);
  bool HandleKey(const MSG& message, HWND root);
  bool IsEndOfShortcut(const MSG& message);

  bool held_ = false;
  bool alt_used_ = false;  // for a shortcut, since it was pressed
  ULONGLONG last_run_ = 0;
};

}  // namespace tarnwell
