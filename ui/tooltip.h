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
  static void Hide();

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
