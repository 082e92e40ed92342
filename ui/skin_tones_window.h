#pragma once

#include <array>

#include "modules/frm_skin_tones.h"
#include "ui/buttons.h"
#include "ui/frame_window.h"
#include "ui/swatch_control.h"

namespace tarnwell {

struct Form1;

// The window "Manage Skin Tones".
class SkinTonesWindow : public FrameWindow {
 public:
  SkinTonesWindow(HWND owner, frmSkinTones& model, Form1& form);
  void Update();  // shows or hides itself and its fields as the model says

  std::function<void()> closed = [] {};

 protected:
  void LayOut(const Box& client) override;
  void PaintClient(Painter& painter, const Box& client) override;
  void OnConfirm() override;
  void OnDismiss() override;
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  void MakeButtons();
  void ShowFields();
  void ShowList();
  void FieldChanged(int field);
  void DrawEntry(const DRAWITEMSTRUCT& item);

  frmSkinTones& model_;
  Form1& form_;
  HWND list_ = nullptr;
  HWND description_ = nullptr;
  std::array<HWND, 3> colours_ = {};
  Box list_box_;
  Box description_box_;
  std::array<Box, 3> colour_boxes_;
  SwatchControl swatch_;
  std::vector<std::unique_ptr<Button>> edits_;
  std::unique_ptr<Button> pick_;
  std::unique_ptr<Button> ok_;
  std::unique_ptr<Button> cancel_;
  bool showing_ = false;  // fields are being filled: their changes are not the user's
};

}  // namespace tarnwell
