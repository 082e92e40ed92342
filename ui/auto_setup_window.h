#pragma once

#include <array>
#include <memory>

#include "automation/auto_setup.h"
#include "ui/modal_window.h"

namespace tarnwell {

// The three folders of the automated mode, to type or to choose.
class AutoSetupWindow : public ModalWindow {
 public:
  AutoSetupWindow(HWND owner, frmAutoSetup& setup, Dialogs& dialogs);
  void TakeFields();  // what was typed goes into the model

 protected:
  HWND FirstFocus() const override { return rows_[0].field; }
  void LayOutContent(const Box& content) override;
  void PaintClient(Painter& painter, const Box& client) override;
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  struct Row {
    std::unique_ptr<Label> label;
    HWND field = nullptr;
    Box field_box;
    std::unique_ptr<Button> browse;
  };
  void Browse(int row);

  frmAutoSetup& setup_;
  Dialogs& dialogs_;
  Label explanation_;
  std::array<Row, 3> rows_;
};

}  // namespace tarnwell
