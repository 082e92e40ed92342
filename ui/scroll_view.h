#pragma once

#include "ui/scroll_bar.h"
#include "ui/window.h"

namespace tarnwell {

// A part of a window with more in it than it shows: the content scrolls by the wheel, by its bar,
// and to the control that gets the focus.
class ScrollView : public Window {
 public:
  explicit ScrollView(const Look& look);
  void Create(HWND parent, const std::wstring& name);
  void Wheel(int delta);
  // Controls are made in it and placed from its left top corner.
  HWND content() const { return content_.handle(); }
  void SetContentHeight(int height);  // after a change of the content or of this window's size

 protected:
  virtual void OnSized() {}
  virtual void PaintContent(Painter& painter, const Box& client);
  virtual void OnContentClick(int, int) {}

  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

  const Look& look_;

 private:
  // What scrolls: one tall child that carries the controls.
  class Content : public Window {
   public:
    explicit Content(ScrollView& view) : view_(view) {}
    void Create(HWND parent, const std::wstring& name);

   protected:
    LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

   private:
    ScrollView& view_;
  };

  void PlaceContent();
  void ScrollTo(int offset);
  void ShowChild(HWND child);

  Content content_;
  ScrollBar scroll_bar_;
  int height_ = 0;  // of the content
  int offset_ = 0;
};

}  // namespace tarnwell
