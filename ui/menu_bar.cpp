#include "ui/menu_bar.h"

#include <algorithm>

#include "ui/popup_menu.h"

namespace tarnwell {
namespace {

// "&" before the letter that opens the menu with ALT. ALT+O opens a photo, so that Options has
// another one.
constexpr std::array<const wchar_t*, kMenuCount> kNames = {L"&File", L"&Edit", L"O&ptions",
                                                           L"&Tools", L"&Help"};

int Beside(int menu, int direction) { return (menu + direction + kMenuCount) % kMenuCount; }

bool IsOver(HWND window, POINT screen) {
  RECT rect = {};
  GetWindowRect(window, &rect);
  return PtInRect(&rect, screen) != FALSE;
}

}  // namespace

class MenuBar::Entry : public Button {
 public:
  Entry(MenuBar& bar, int menu)
      : Button(bar.look_, Ground::kCard, ButtonKind::kFlat), bar_(bar), menu_(menu) {}

  void SetDropped(bool dropped) {
    if (dropped_ == dropped) return;
    dropped_ = dropped;
    Invalidate();
  }

 protected:
  void Paint(Painter& painter, const Box& client) override {
    if (!dropped_) return Button::Paint(painter, client);
    painter.Round(client, look().scale.Exact(5), look().theme.pressed);
    painter.Text(client, Text(), Face::kBody, look().theme.text, DT_CENTER);
  }

  bool OnKey(WPARAM key) override {
    if (key == VK_LEFT || key == VK_RIGHT) {
      SetFocus(bar_.entries_[Beside(menu_, key == VK_LEFT ? -1 : 1)]->handle());
      return true;
    }
    if (key != VK_DOWN && key != VK_UP) return false;
    clicked();
    return true;
  }

  LRESULT WantedKeys() const override { return Button::WantedKeys() | DLGC_WANTARROWS; }

  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_SETFOCUS) bar_.FocusCameFrom(reinterpret_cast<HWND>(w));
    return Button::Handle(message, w, l);
  }

 private:
  MenuBar& bar_;
  int menu_;
  bool dropped_ = false;
};

MenuBar::MenuBar(const Look& look) : look_(look) {}
MenuBar::~MenuBar() = default;

void MenuBar::Create(HWND parent) {
  for (int menu = 0; menu < kMenuCount; ++menu) {
    entries_[menu] = std::make_unique<Entry>(*this, menu);
    entries_[menu]->clicked = [this, menu] { drop(menu); };
    entries_[menu]->Create(parent, kNames[menu]);
  }
}

void MenuBar::LayOut(const Box& row) {
  int x = row.x + look_.Px(kGrid);
  for (const auto& entry : entries_) {
    const int width = TextSize(look_, Face::kBody, entry->Text()).cx + look_.Px(2 * kGrid);
    entry->Place({x, row.y + look_.Px(4), width, row.height - look_.Px(8)});
    x += width + look_.Px(2);
  }
}

bool MenuBar::Holds(HWND window) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [window](const auto& entry) { return entry->handle() == window; });
}

void MenuBar::FocusCameFrom(HWND window) {
  if (window && !Holds(window)) before_ = window;
}

bool MenuBar::Leave() {
  if (!Holds(GetFocus())) return false;
  if (IsWindowVisible(before_) && IsWindowEnabled(before_)) SetFocus(before_);
  return true;
}

void MenuBar::ToggleFocus() {
  if (Leave()) return;
  SetFocus(entries_[0]->handle());
}

POINT MenuBar::Below(int menu) const {
  RECT rect = {};
  GetWindowRect(entries_[menu]->handle(), &rect);
  return {rect.left, rect.bottom + look_.Px(2)};
}

MenuNeighbours MenuBar::NeighboursOf(int menu) const {
  const auto under = [this, menu](POINT screen) -> std::optional<int> {
    for (int other = 0; other < kMenuCount; ++other) {
      if (other != menu && IsOver(entries_[other]->handle(), screen)) return other;
    }
    return std::nullopt;
  };
  return {
      .beside = [menu](int direction) { return Beside(menu, direction); },
      .under = under,
      .is_own = [this, menu](POINT screen) { return IsOver(entries_[menu]->handle(), screen); }};
}

void MenuBar::ShowDropped(int menu, bool dropped) { entries_[menu]->SetDropped(dropped); }

}  // namespace tarnwell
