#pragma once

#include <functional>
#include <string>

#include "ui/accessible.h"
#include "ui/painter.h"
#include "ui/window.h"

namespace tarnwell {

// What a control lies on; its corners show that.
enum class Ground { kPage, kCard };

// A child window that is drawn by the program: pointer and keyboard come as a few plain calls, and
// hovering, holding and the focus are kept for the drawing.
class Control : public Window {
 public:
  explicit Control(const Look& look, Ground ground = Ground::kCard)
      : look_(look), ground_(ground) {}
  ~Control() override;

  // Makes the control in `parent`, visible. `name` is what screen readers call it; "&" marks an
  // access key. `role` is a ROLE_SYSTEM_ constant.
  void Create(HWND parent, const std::wstring& name, DWORD role, bool tab_stop);

  // Shown after the pointer has rested on the control; empty for none.
  void SetTip(const std::wstring& tip);
  const std::wstring& tip() const { return tip_; }

 protected:
  // What screen readers say of the control's state; they are told when it changes.
  void SetAccessibleValue(const std::wstring& value);
  void SetAccessibleChecked(bool checked);

  virtual void Paint(Painter& painter, const Box& client) = 0;

  // The left button went down, moved while down, and went up at a point.
  virtual void OnPress(int, int) {}
  virtual void OnDrag(int, int) {}
  virtual void OnRelease(int, int) {}
  // Pressed and released inside, or pressed with the space bar or an access key.
  virtual void OnClick() {}
  // True when the key was used.
  virtual bool OnKey(WPARAM) { return false; }
  // Keys that must not leave for the window around (as DLGC_WANTARROWS).
  virtual LRESULT WantedKeys() const { return DLGC_BUTTON; }

  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

  const Look& look() const { return look_; }
  Colour GroundColour() const {
    return ground_ == Ground::kPage ? look_.theme.page : look_.theme.card;
  }
  bool enabled() const { return IsWindowEnabled(handle()); }
  bool hovered() const { return hovered_; }
  bool held() const { return held_; }
  bool ShowsFocus() const { return look_.show_focus && GetFocus() == handle(); }

 private:
  void PaintNow();
  void Follow(UINT message);
  bool HandlePointer(UINT message, int x, int y);
  bool HandleKey(UINT message, WPARAM key);
  void SetHovered(bool hovered);
  // A menu or window that came up keeps the pointer's leaving from being told.
  void CheckHovered();
  void SetHeld(bool held);

  const Look& look_;
  Ground ground_;
  std::wstring tip_;
  // Screen readers may hold on to it longer than the control lives.
  std::shared_ptr<AccessibleFacts> facts_ = std::make_shared<AccessibleFacts>();
  bool hovered_ = false;
  bool held_ = false;
  bool captured_ = false;
};

}  // namespace tarnwell
