#pragma once

#include <vector>
#include <windows.h>

namespace tarnwell {

// While it lives, the user can work with one window of the program only: `kept` stays as it is, the
// others that are on the screen are disabled. At the end those that were enabled are enabled again,
// the owner of `kept` first.
class OthersDisabled {
 public:
  explicit OthersDisabled(HWND kept);
  ~OthersDisabled();
  OthersDisabled(const OthersDisabled&) = delete;
  OthersDisabled& operator=(const OthersDisabled&) = delete;

 private:
  void Disable(HWND window);
  static BOOL CALLBACK DisableVisible(HWND window, LPARAM self);

  HWND kept_;
  std::vector<HWND> disabled_;
};

}  // namespace tarnwell
