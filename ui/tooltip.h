#pragma once

#include <string>

#include "ui/painter.h"
#include "ui/window.h"

namespace tarnwell {

class Control;

// The one tooltip of the program: a control's tip, a moment after the pointer came to rest on it.
class Tooltip : public Window {
 public:
  static void Await(const Control& control, const Look& look);
  // Hides the tip of this control. Another's, to which the pointer has gone already, stays.
  static void Hide(const Control& control);
  static void Hide();  // whose it may be

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  static Tooltip& Only();
  void ShowNow();

  const Look* look_ = nullptr;
  HWND control_ = nullptr;
  std::wstring text_;
};

}  // namespace tarnwell
