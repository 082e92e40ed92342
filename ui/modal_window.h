#pragma once

#include <memory>
#include <vector>

#include "ui/buttons.h"
#include "ui/frame_window.h"
#include "ui/scroll_view.h"

namespace tarnwell {

class Messages;

// A window that the user answers before anything else: content, then OK and Cancel at its foot.
class ModalWindow : public FrameWindow {
 public:
  // Shows the window over `owner` until it is answered. True for OK.
  bool Run(Messages& messages, HWND owner);

 protected:
  ModalWindow();
  // Makes window and buttons; the derived window makes its content after that.
  void CreateModal(const std::wstring& title, HWND owner, int width, int height);
  // The control that has the focus at the start.
  virtual HWND FirstFocus() const { return ok_.handle(); }
  virtual void LayOutContent(const Box& content) = 0;

  void OnConfirm() override { Answer(true); }
  void OnDismiss() override { Answer(false); }
  void LayOut(const Box& client) override;
  void PaintClient(Painter& painter, const Box& client) override;

 private:
  void Answer(bool confirmed);

  Button ok_;
  Button cancel_;
  bool answered_ = false;
  bool confirmed_ = false;
};

// One of several choices.
class ChoiceWindow : public ModalWindow {
 public:
  ChoiceWindow(HWND owner, const std::wstring& title, const std::wstring& question,
               const std::vector<std::wstring>& choices, int chosen);
  int chosen() const { return chosen_; }

 protected:
  void LayOutContent(const Box& content) override;
  HWND FirstFocus() const override;

 private:
  Label question_;
  std::vector<std::unique_ptr<RadioButton>> choices_;
  int chosen_;
};

// Any of several choices, all of them checked at first; many of them scroll.
class CheckListWindow : public ModalWindow {
 public:
  CheckListWindow(HWND owner, const std::wstring& title, const std::wstring& text,
                  const std::vector<std::wstring>& entries);
  const std::vector<bool>& checked() const { return checked_; }

 protected:
  void LayOutContent(const Box& content) override;
  HWND FirstFocus() const override { return boxes_.front()->handle(); }

 private:
  Label text_;
  ScrollView list_;
  std::vector<std::unique_ptr<CheckBox>> boxes_;
  std::vector<bool> checked_;
};

// One line to fill in.
class TextWindow : public ModalWindow {
 public:
  TextWindow(HWND owner, const std::wstring& title, const std::wstring& prompt);
  std::wstring text() const;

 protected:
  void LayOutContent(const Box& content) override;
  HWND FirstFocus() const override { return field_; }
  void PaintClient(Painter& painter, const Box& client) override;

 private:
  Label prompt_;
  HWND field_ = nullptr;
  Box field_box_;
};

}  // namespace tarnwell
