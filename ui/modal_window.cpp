#include "ui/modal_window.h"

#include <algorithm>

#include "ui/fields.h"
#include "ui/messages.h"
#include "ui/others_disabled.h"

namespace tarnwell {
namespace {

constexpr int kMargin = 3 * kGrid;
constexpr int kButtonWidth = 12 * kGrid;
constexpr int kButtonHeight = 4 * kGrid;
constexpr int kChoiceHeight = 4 * kGrid;
constexpr int kQuestionHeight = 4 * kGrid;
constexpr int kMostChoicesShown = 8;  // the rest is scrolled to
constexpr int kModalWidth = 62 * kGrid;

}  // namespace

ModalWindow::ModalWindow()
    : ok_(look_, Ground::kCard, ButtonKind::kAccent),
      cancel_(look_, Ground::kCard, ButtonKind::kPlain) {}

void ModalWindow::CreateModal(const std::wstring& title, HWND owner, int width, int height) {
  MakeDialog(title, owner, width, height + kFootHeight);
}

bool ModalWindow::Run(Messages& messages, HWND owner) {
  ok_.clicked = [this] { Answer(true); };
  ok_.Create(handle(), L"&OK");
  cancel_.clicked = [this] { Answer(false); };
  cancel_.Create(handle(), L"&Cancel");
  LayOut(Client());
  {
    const OthersDisabled others(handle());
    ShowCentred();
    look_.show_focus = true;
    SetFocus(FirstFocus());
    messages.RunWhile([this] { return !answered_; });
  }
  Show(false);
  SetActiveWindow(owner);
  return confirmed_;
}

void ModalWindow::Answer(bool confirmed) {
  answered_ = true;
  confirmed_ = confirmed;
}

void ModalWindow::LayOut(const Box& client) {
  if (!cancel_.handle()) return;
  const int top = client.height - Px(kFootHeight) + Px(12);
  const int width = Px(kButtonWidth);
  cancel_.Place({client.width - Px(kMargin) - width, top, width, Px(kButtonHeight)});
  ok_.Place({client.width - Px(kMargin + kGrid) - 2 * width, top, width, Px(kButtonHeight)});
  const Box content = {0, 0, client.width, client.height - Px(kFootHeight)};
  LayOutContent(Inset(content, Px(kMargin), Px(2 * kGrid)));
}

void ModalWindow::PaintClient(Painter& painter, const Box& client) {
  PaintWithFoot(painter, client);
}

ChoiceWindow::ChoiceWindow(HWND owner, const std::wstring& title, const std::wstring& question,
                           const std::vector<std::wstring>& choices, int chosen)
    : question_(look_, Ground::kPage, Face::kStrong), chosen_(chosen) {
  const int count = static_cast<int>(choices.size());
  CreateModal(title, owner, kModalWidth, kQuestionHeight + count * kChoiceHeight + 2 * kMargin);
  question_.Create(handle(), question);
  for (int i = 0; i < count; ++i) {
    auto choice = std::make_unique<RadioButton>(look_, Ground::kPage);
    choice->is_on = [this, i] { return chosen_ == i; };
    choice->clicked = [this, i] {
      chosen_ = i;
      for (const auto& other : choices_) other->Update();
    };
    choice->Create(handle(), choices[i]);
    choices_.push_back(std::move(choice));
  }
}

HWND ChoiceWindow::FirstFocus() const { return choices_[chosen_]->handle(); }

void ChoiceWindow::LayOutContent(const Box& content) {
  question_.Place({content.x, content.y, content.width, Px(kQuestionHeight)});
  int y = content.y + Px(kQuestionHeight + kGrid);
  for (const auto& choice : choices_) {
    choice->Place({content.x, y, content.width, Px(kChoiceHeight)});
    y += Px(kChoiceHeight);
  }
}

CheckListWindow::CheckListWindow(HWND owner, const std::wstring& title, const std::wstring& text,
                                 const std::vector<std::wstring>& entries)
    : text_(look_, Ground::kPage, Face::kStrong), list_(look_), checked_(entries.size(), true) {
  const int shown = std::min(static_cast<int>(entries.size()), kMostChoicesShown);
  CreateModal(title, owner, kModalWidth, kQuestionHeight + shown * kChoiceHeight + 2 * kMargin);
  text_.Create(handle(), text);
  list_.Create(handle(), text);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    auto box = std::make_unique<CheckBox>(look_, Ground::kPage);
    CheckBox* made = box.get();
    box->is_on = [this, i] { return checked_[i]; };
    box->clicked = [this, i, made] {
      checked_[i] = !checked_[i];
      made->Update();
    };
    box->Create(list_.content(), entries[i]);
    boxes_.push_back(std::move(box));
  }
}

void CheckListWindow::LayOutContent(const Box& content) {
  text_.Place({content.x, content.y, content.width, Px(kQuestionHeight)});
  const int top = content.y + Px(kQuestionHeight + kGrid);
  const int height = Px(kChoiceHeight);
  list_.Place({content.x, top, content.width, content.bottom() - top});
  list_.SetContentHeight(static_cast<int>(boxes_.size()) * height);
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    boxes_[i]->Place({0, static_cast<int>(i) * height, content.width - Px(2 * kGrid), height});
  }
}

TextWindow::TextWindow(HWND owner, const std::wstring& title, const std::wstring& prompt)
    : prompt_(look_, Ground::kPage, Face::kBody) {
  CreateModal(title, owner, kModalWidth, 4 * kMargin + kGrid);
  prompt_.Create(handle(), prompt);
  field_ = MakeField(handle(), 100, prompt);
  Dress(field_);
}

std::wstring TextWindow::text() const { return TextOf(field_); }

void TextWindow::LayOutContent(const Box& content) {
  prompt_.Place({content.x, content.y, content.width, Px(3 * kGrid)});
  field_box_ = {content.x, content.y + Px(4 * kGrid), content.width, Px(4 * kGrid)};
  PlaceField(field_, look_, field_box_);
}

void TextWindow::PaintClient(Painter& painter, const Box& client) {
  ModalWindow::PaintClient(painter, client);
  PaintFieldFrame(painter, field_, field_box_);
}

}  // namespace tarnwell
