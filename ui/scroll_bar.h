#pragma once

#include "ui/control.h"

namespace tarnwell {

// A slim vertical scroll bar. The wheel and the keyboard scroll too, so it takes no focus.
class ScrollBar : public Control {
 public:
  explicit ScrollBar(const Look& look) : Control(look, Ground::kPage) {}
  void Create(HWND parent);
  // The content's and the view's height, and how far it is scrolled.
  void Update(int content, int view, int offset);

  std::function<void(int)> scrolled = [](int) {};  // to this offset

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnPress(int x, int y) override;
  void OnDrag(int x, int y) override;

 private:
  Box Thumb() const;
  int content_ = 0;
  int view_ = 0;
  int offset_ = 0;
  int grabbed_ = 0;  // where on the thumb the pointer holds it
};

}  // namespace tarnwell
